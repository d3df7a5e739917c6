#include "LineDefList.h"

#include <algorithm>

k_LineDefList::~k_LineDefList()
{
    Clear();
}

bool k_LineDefList::Clear()
{
    Cut(0);
    return true;
}

void k_LineDefList::Cut(INT_PTR count)
{
    for (INT_PTR i = count; i < GetSize(); ++i)
        delete GetAt(i);
    SetSize(std::min(count, GetSize()));
    SetFlags();
}

void k_LineDefList::SetFlags()
{
    SameLineStyle = SameLineWidth = SameLineColor = true;
    SameSymbolShape = SameSymbolFill = SameSymbolSize = SameSymbolColor = true;
}

void k_LineDefList::CopyFlags(const k_LineDefList& source)
{
    SameLineStyle = source.SameLineStyle;
    SameLineWidth = source.SameLineWidth;
    SameLineColor = source.SameLineColor;
    SameSymbolShape = source.SameSymbolShape;
    SameSymbolFill = source.SameSymbolFill;
    SameSymbolSize = source.SameSymbolSize;
    SameSymbolColor = source.SameSymbolColor;
}

void k_LineDefList::Assign(const k_LineDefList& source)
{
    if (&source == this)
        return;
    Clear();
    CopyFlags(source);
    SetSize(source.GetSize());
    for (INT_PTR i = 0; i < source.GetSize(); ++i) {
        auto* const pRecord = new k_LineDef;
        SetAt(i, pRecord);
        if (const k_LineDef* const pSource = source.GetAt(i))
            *pRecord = *pSource;
    }
}

bool k_LineDefList::Append(const k_LineDefList* pSource)
{
    if (pSource == nullptr)
        return false;
    const INT_PTR count = pSource->GetSize(); // a list can be appended to itself
    for (INT_PTR i = 0; i < count; ++i)
        Add(pSource->GetAt(i));
    return true;
}

void k_LineDefList::UpdateUniformity()
{
    SetFlags();
    for (INT_PTR i = 1; i < GetSize(); ++i) {
        const k_LineDef* const pFirst = GetAt(i - 1);
        const k_LineDef* const pSecond = GetAt(i);
        if (pFirst == nullptr || pSecond == nullptr)
            continue;
        SameLineStyle = SameLineStyle && pFirst->LineStyle == pSecond->LineStyle;
        SameLineWidth = SameLineWidth && pFirst->LineWidth == pSecond->LineWidth;
        SameLineColor = SameLineColor && pFirst->LineColor == pSecond->LineColor;
        SameSymbolShape = SameSymbolShape && pFirst->SymbolShape == pSecond->SymbolShape;
        SameSymbolFill = SameSymbolFill && pFirst->SymbolFill == pSecond->SymbolFill;
        SameSymbolSize = SameSymbolSize && pFirst->SymbolSize == pSecond->SymbolSize;
        SameSymbolColor = SameSymbolColor && pFirst->SymbolColor == pSecond->SymbolColor;
    }
}
