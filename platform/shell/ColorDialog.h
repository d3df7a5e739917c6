// Who answers the colour dialogs of the library.
#pragma once

#include <windef.h>

// Answers in the user's place: changes the dialog's colour and its custom colours, 16 of them or null, and
// gives IDOK or IDCANCEL.
using ColorDialogAnswer = INT_PTR (*)(COLORREF& color, COLORREF* customColors);

// Puts an answer in place and gives the one before it; null is the user.
ColorDialogAnswer SetColorDialogAnswer(ColorDialogAnswer answer);
