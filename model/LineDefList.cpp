#include "LineDefList.h"

#include <algorithm>

namespace
{

// A property of a record, and the flag that is set while all records of a list agree on it.
struct k_Property {
    bool k_LineDefList::*Flag;
    bool (*AreEqual)(const k_LineDef& first, const k_LineDef& second);
};

template <auto Member> bool AreEqual(const k_LineDef& first, const k_LineDef& second)
{
    return first.*Member == second.*Member;
}

constexpr k_Property properties[] = {
    {&k_LineDefList::SameLineStyle, AreEqual<&k_LineDef::LineStyle>},
    {&k_LineDefList::SameLineWidth, AreEqual<&k_LineDef::LineWidth>},
    {&k_LineDefList::SameLineColor, AreEqual<&k_LineDef::LineColor>},
    {&k_LineDefList::SameSymbolShape, AreEqual<&k_LineDef::SymbolShape>},
    {&k_LineDefList::SameSymbolFill, AreEqual<&k_LineDef::SymbolFill>},
    {&k_LineDefList::SameSymbolSize, AreEqual<&k_LineDef::SymbolSize>},
    {&k_LineDefList::SameSymbolColor, AreEqual<&k_LineDef::SymbolColor>},
};

} // namespace

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
    for (const k_Property& property : properties)
        this->*property.Flag = true;
}

void k_LineDefList::CopyFlags(const k_LineDefList& source)
{
    for (const k_Property& property : properties)
        this->*property.Flag = source.*property.Flag;
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
        for (const k_Property& property : properties)
            this->*property.Flag = this->*property.Flag && property.AreEqual(*pFirst, *pSecond);
    }
}
