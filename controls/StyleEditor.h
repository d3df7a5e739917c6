// How the column tree has the user edit styles: its owner brings the editor.
#pragma once

#include <afxwin.h>

class k_LineDefList;
class k_QuantityDesc;

// Lets the user edit the records of a list, and returns IDOK, IDCANCEL, or -1 if no dialog can be shown.
// After anything but IDOK the records are untouched. A list can hold nulls. List, records and quantity stay
// the caller's and outlive the call; the quantity is the one that the user chose, null if there is none.
using k_StyleEditor = INT_PTR (*)(CWnd* pParent, k_LineDefList* pStyles, k_QuantityDesc* pQuantity);
