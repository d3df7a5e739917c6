// Reports a command that ended in an exception to the user.
#pragma once

#include <afxobj.h>

// Shows a message box. Raises the memory exception.
void ReportCommandFailure(const CException& failure);
