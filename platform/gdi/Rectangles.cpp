#include <algorithm>
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

BOOL IntersectRect(LPRECT result, LPCRECT first, LPCRECT second)
{
    if (result == nullptr || first == nullptr || second == nullptr)
        return FALSE;
    *result = {std::max(first->left, second->left), std::max(first->top, second->top),
               std::min(first->right, second->right), std::min(first->bottom, second->bottom)};
    if (IsRectEmpty(result) == FALSE)
        return TRUE;
    *result = {0, 0, 0, 0};
    return FALSE;
}
