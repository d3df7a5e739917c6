// The function by which the column tree edits styles, supplied by its owner.
#pragma once

#include <afxwin.h>

class k_LineDefList;
class k_QuantityDesc;

// Lets the user edit the records of a list. Returns IDOK, IDCANCEL, or -1 if no dialog can be shown; the
// records change only after IDOK. The list can hold nulls. List, records and quantity stay the caller's and
// outlive the call. The quantity is the one that the user selected, or null.
using k_StyleEditor = INT_PTR (*)(CWnd* pParent, k_LineDefList* pStyles, k_QuantityDesc* pQuantity);
