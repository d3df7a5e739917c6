#include "StyleAtlas.h"

#include <algorithm>
#include <memory>

namespace
{

const k_QuantityDesc* RowAt(void* const* rows, INT_PTR i) { return static_cast<const k_QuantityDesc*>(rows[i]); }

} // namespace

k_StyleAtlas::~k_StyleAtlas() { Clear(); }

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
    Version = source.Version;
    ColumnCount = source.ColumnCount;
    RegistryPath = source.RegistryPath;
    FilePath = source.FilePath;
    Rows.SetSize(source.Rows.GetSize());
    for (INT_PTR i = 0; i < source.Rows.GetSize(); ++i) {
        if (const k_QuantityDesc* const pSource = source.GetRow(i))
            Rows.SetAt(i, new k_QuantityDesc(*pSource));
    }
    return *this;
}

int k_StyleAtlas::GetBoundedColumnCount() const
{
    return static_cast<int>(std::min<DWORD>(ColumnCount, k_MaxFileColumns));
}

INT_PTR k_StyleAtlas::AddRow(QuantityKey key, BYTE level)
{
    auto row = std::make_unique<k_QuantityDesc>(key);
    row->Level = level;
    const int columns = GetBoundedColumnCount();
    row->Styles.SetSize(columns);
    for (int column = 0; column < columns; ++column)
        row->SetColumnStyle(column, new k_LineDef);
    const INT_PTR index = Rows.Add(row.get());
    static_cast<void>(row.release());
    return index;
}

// One forward pass: each stage's test contains the one before it, so it goes on where that one stopped.
INT_PTR k_StyleAtlas::FindRow(const QuantityKey& key) const
{
    const INT_PTR n = Rows.GetSize();
    void* const* const rows = Rows.GetData();
    const auto scan = [rows, n](INT_PTR from, auto passes) -> INT_PTR {
        for (INT_PTR i = from; i < n; ++i) {
            const k_QuantityDesc* const pRow = RowAt(rows, i);
            if (pRow != nullptr && passes(*pRow))
                return i;
        }
        return -1;
    };
    // One by one: two neighbours read as one word, which a comparison of both invites, would wait for the
    // caller's two stores of them.
    const WORD quantity = key.Quantity;
    const WORD subQuantity = key.SubQuantity;
    const short device = key.Device;

    INT_PTR best = scan(0, [&](const k_QuantityDesc& row) { return row.Quantity == quantity; });
    if (best < 0)
        return -1;
    INT_PTR found = scan(best, [&](const k_QuantityDesc& row) {
        return row.Quantity == quantity && row.SubQuantity == subQuantity;
    });
    if (found < 0)
        return best;
    best = found;
    found = scan(best, [&](const k_QuantityDesc& row) {
        return row.Quantity == quantity && row.SubQuantity == subQuantity && row.Device == device;
    });
    if (found < 0)
        return best;
    best = found;
    found = scan(best, [&](const k_QuantityDesc& row) {
        return row.Quantity == quantity && row.SubQuantity == subQuantity && row.Device == device &&
               row.Index == key.Index && row.Flags == key.Flags;
    });
    return found < 0 ? best : found;
}

k_QuantityDesc* k_StyleAtlas::GetRow(INT_PTR row) const
{
    return row < 0 || row >= Rows.GetSize() ? nullptr : static_cast<k_QuantityDesc*>(Rows.GetAt(row));
}

k_LineDef* k_StyleAtlas::GetRowStyle(INT_PTR row, int column) const
{
    if (row >= Rows.GetSize())
        return nullptr;
    auto* const pRow = static_cast<k_QuantityDesc*>(Rows.GetAt(row));
    return pRow != nullptr ? pRow->GetColumnStyle(column) : nullptr;
}
