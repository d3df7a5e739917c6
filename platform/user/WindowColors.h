// The colours of top-level windows.
#pragma once

class QWidget;

// Gives a top-level widget the palette of GetSysColor, now and when the desktop's palette changes.
void UseWindowColors(QWidget& window);
