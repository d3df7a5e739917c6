// A list of curve styles, and on which properties they agree.
#pragma once

#include "LineDef.h"

#include <afxtempl.h>

// The list deletes the records that it holds when it is cleared or destroyed. One that only selects records
// of others is emptied with CPtrArray::SetSize(0, -1) first. A selection can hold nulls.
class AFX_EXT_CLASS k_LineDefList : public CTypedPtrArray<CPtrArray, k_LineDef*>
{
public:
    k_LineDefList() = default;
    ~k_LineDefList() override;

    // Deletes the records and sets all flags; true.
    bool Clear();

    // Deletes the records from a position on and sets all flags. A negative position raises the invalid
    // argument exception.
    void Cut(INT_PTR count);

    // Replaces the contents by new copies of the source's records, and the flags by the source's. A null of
    // the source gives a record as constructed.
    void Assign(const k_LineDefList& source);

    // Appends the source's pointers, not copies; false for a null source.
    bool Append(const k_LineDefList* pSource);

    // Sets the flags below by comparing each record with the next one; next to a null nothing is compared.
    void UpdateUniformity();

    // Whether all records agree on a property: what the last pass found.
    bool SameLineStyle = true;
    bool SameLineWidth = true;
    bool SameLineColor = true;
    bool SameSymbolShape = true;
    bool SameSymbolFill = true;
    bool SameSymbolSize = true;
    bool SameSymbolColor = true;

private:
    void SetFlags();
    void CopyFlags(const k_LineDefList& source);
};
