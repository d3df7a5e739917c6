#include "StyleAtlas.h"

#include "OwnedElement.h"

#include <algorithm>
#include <memory>
#include <new>

k_StyleAtlas::~k_StyleAtlas()
{
    Clear();
}

void k_StyleAtlas::Clear()
{
    for (INT_PTR i = 0; i < Rows.GetSize(); ++i)
        delete GetRow(i);
    Rows.SetSize(0);
}

k_StyleAtlas& k_StyleAtlas::Assign(const k_StyleAtlas& source)
{
    if (&source == this)
        return *this;
    Clear();
    AssignHead(source);
    Rows.SetSize(source.Rows.GetSize());
    for (INT_PTR i = 0; i < source.Rows.GetSize(); ++i) {
        if (const k_QuantityDesc* const pSource = source.GetRow(i))
            Rows.SetAt(i, new k_QuantityDesc(*pSource));
    }
    return *this;
}

k_StyleAtlas& k_StyleAtlas::Assign(k_StyleAtlas&& source)
{
    if (&source == this)
        return *this;
    Clear();
    AssignHead(source);
    Rows.SetSize(source.Rows.GetSize());
    for (INT_PTR i = 0; i < source.Rows.GetSize(); ++i)
        Rows.SetAt(i, source.Rows.GetAt(i));
    source.Rows.SetSize(0);
    return *this;
}

// Copies everything except the rows.
void k_StyleAtlas::AssignHead(const k_StyleAtlas& source)
{
    Version = source.Version;
    ColumnCount = source.ColumnCount;
    RegistryPath = source.RegistryPath;
    FilePath = source.FilePath;
    try {
        UnreadFiles = source.UnreadFiles;
    } catch (const std::bad_alloc&) {
        AfxThrowMemoryException();
    }
}

INT_PTR k_StyleAtlas::AddRow(QuantityKey key, BYTE level)
{
    auto row = std::make_unique<k_QuantityDesc>(key);
    row->Level = level;
    const int columns = GetBoundedColumnCount();
    row->Styles.SetSize(columns);
    for (int column = 0; column < columns; ++column)
        row->Styles.SetAt(column, new k_LineDef);
    return AddOwned(Rows, std::move(row));
}

k_QuantityDesc* k_StyleAtlas::GetRow(INT_PTR row) const
{
    return row < 0 || row >= Rows.GetSize() ? nullptr : Rows.GetAt(row);
}
