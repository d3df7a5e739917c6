// Calls from the event loop.
#pragma once

#include <functional>

class Window;

// Calls a function when control returns to the event loop, unless the window is gone by then. An event loop
// that the function runs handles the window's events.
void CallLater(Window& window, const std::function<void()>& function);
