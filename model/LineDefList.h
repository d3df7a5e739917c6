// A list of curve styles, with flags for the properties on which they agree.
#pragma once

#include "LineDef.h"

#include <afxtempl.h>

// Deletes its records when it is cleared or destroyed. A list that only refers to records owned elsewhere
// must be emptied with CPtrArray::SetSize(0, -1) first. Such a list can hold nulls.
class AFX_EXT_CLASS k_LineDefList : public CTypedPtrArray<CPtrArray, k_LineDef*>
{
public:
    k_LineDefList() = default;
    ~k_LineDefList() override;

    // Deletes the records and sets all flags. Always true.
    bool Clear();

    // Deletes the records from a position on and sets all flags. A negative position raises the invalid
    // argument exception.
    void Cut(INT_PTR count);

    // Replaces the contents by copies of the source's records, and the flags by the source's. A null is
    // copied as a default record.
    void Assign(const k_LineDefList& source);

    // Appends the source's pointers, not copies; false for a null source.
    bool Append(const k_LineDefList* pSource);

    // Sets the flags below by comparing each record with the next one. Nulls are not compared.
    void UpdateUniformity();

    // Whether all records agree on a property, as of the last UpdateUniformity.
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
