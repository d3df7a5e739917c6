// The application object that windows need.
#pragma once

// Whether windows can be shown. Makes the application object where the program has none, unless there is no
// display.
bool EnsureApplication();
