#include <winuser.h>

BOOL InflateRect(LPRECT rectangle, int x, int y)
{
    if (rectangle == nullptr)
        return FALSE;
    *rectangle = {rectangle->left - x, rectangle->top - y, rectangle->right + x, rectangle->bottom + y};
    return TRUE;
}

BOOL OffsetRect(LPRECT rectangle, int x, int y)
{
    if (rectangle == nullptr)
        return FALSE;
    *rectangle = {rectangle->left + x, rectangle->top + y, rectangle->right + x, rectangle->bottom + y};
    return TRUE;
}

BOOL PtInRect(LPCRECT rectangle, POINT point)
{
    return rectangle != nullptr && point.x >= rectangle->left && point.x < rectangle->right &&
                   point.y >= rectangle->top && point.y < rectangle->bottom
               ? TRUE
               : FALSE;
}

BOOL IsRectEmpty(LPCRECT rectangle)
{
    return rectangle == nullptr || rectangle->left >= rectangle->right || rectangle->top >= rectangle->bottom
               ? TRUE
               : FALSE;
}
