// The icon of the program.
#pragma once

#include <QIcon>

namespace atlashost
{

// Is part of the program, so that its windows have it without an installed icon too.
QIcon ProgramIcon();

} // namespace atlashost
