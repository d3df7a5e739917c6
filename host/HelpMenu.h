// The menu with the manual and what there is to know of the program.
#pragma once

class QMainWindow;

namespace atlashost
{

// Adds the menu to the window. The manual is the installed one, which the user's browser shows; where there
// is none, a message says where to find it.
void AddHelpMenu(QMainWindow& window);

} // namespace atlashost
