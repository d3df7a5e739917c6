// How a control has the user edit the styles of what it shows.
#pragma once

#include <afxwin.h>

class k_LineDefList;
class k_QuantityDesc;

// Opens the curve style dialog on the records of a list and gives IDOK, IDCANCEL, or -1 where no dialog can
// be shown. After IDOK the choices stand in the records themselves; where the records differed and the user
// chose nothing, each keeps its own value. After anything else they are untouched.
//
// Nulls in the list are passed over. List, records and quantity stay the caller's and must outlive the call.
// The quantity is named in the dialog's title; null names none. Without a parent the active window of the
// program is it. Where memory ends no dialog is shown.
INT_PTR EditStyles(CWnd* pParent, k_LineDefList* pStyles, k_QuantityDesc* pQuantity);
