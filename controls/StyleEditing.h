// How the controls open the dialog that edits styles, which stands on a floor above them.
#pragma once

#include <afxwin.h>

class k_LineDefList;
class k_QuantityDesc;

// Lets the user edit the listed records, all at once, in a modal dialog above the parent; on IDOK they have
// been written. Nulls in the list are passed over. The title names the row, unless that is null. List,
// records and row stay the caller's. Gives IDOK, IDCANCEL, or -1 where no dialog can be shown.
INT_PTR EditStyles(CWnd* pParent, k_LineDefList* pStyles, k_QuantityDesc* pQuantity);
