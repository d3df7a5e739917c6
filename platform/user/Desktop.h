// What of the desktop is the same everywhere until somebody changes it.
#pragma once

// Makes edges this thick, in pixels from 1 on, and gives their thickness before. Windows that stand keep
// theirs.
int SetEdgeWidth(int width);
