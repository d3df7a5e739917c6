// What the user hears when a command ends in an exception.
#pragma once

#include <windef.h>

class PLATFORM_API CException;

// In a message box. Raises the memory exception.
void ReportCommandFailure(const CException& failure);
