// The layout file format: writer and reader of the atlas, its rows and their records, side by side. See
// docs/layout-format.md.
#include "LayoutHead.h"
#include "OwnedElement.h"
#include "StyleAtlas.h"

#include <afxwin.h>
#include <algorithm>
#include <map>
#include <new>
#include <utility>

namespace
{

// Cap on preallocation from an untrusted count: beyond it a list grows as its records are read.
constexpr int maxPreallocated = 64;

// Maps each key to the position of its first row.
class k_RowIndex
{
public:
    explicit k_RowIndex(const k_StyleAtlas& atlas)
    {
        const INT_PTR size = atlas.Rows.GetSize();
        for (INT_PTR i = 0; i < size; ++i) {
            if (const k_QuantityDesc* const pRow = atlas.GetRow(i))
                PositionOf(*pRow, i);
        }
    }

    // The position of the first row with this row's key. If there is none, records and returns ownPosition.
    INT_PTR PositionOf(const k_QuantityDesc& row, INT_PTR ownPosition)
    {
        QuantityKey key;
        row.GetKey(key);
        return m_positions.try_emplace(key, ownPosition).first->second;
    }

private:
    std::map<QuantityKey, INT_PTR> m_positions; // not a hash: a hostile file could make its keys collide
};

// A record in one piece: a table has a hundred thousand of them.
void WriteStyle(CArchive& ar, const k_LineDef& style)
{
    ar.WriteAll(style.Reserved, style.LineColor, style.SymbolColor, style.SymbolShape, style.SymbolSize,
                style.SymbolFill, style.LineStyle, style.LineWidth, static_cast<BYTE>(style.UseSymbolColor));
}

void ReadStyle(CArchive& ar, k_LineDef& style)
{
    BYTE useSymbolColor = 0;
    ar.ReadAll(style.Reserved, style.LineColor, style.SymbolColor, style.SymbolShape, style.SymbolSize,
               style.SymbolFill, style.LineStyle, style.LineWidth, useSymbolColor);
    style.UseSymbolColor = useSymbolColor != 0;
}

void WriteStyles(CArchive& ar, const k_LineDefList& styles)
{
    const k_LineDef asConstructed;
    for (INT_PTR i = 0; i < styles.GetSize(); ++i) {
        const k_LineDef* const pStyle = styles.GetAt(i);
        WriteStyle(ar, pStyle != nullptr ? *pStyle : asConstructed);
    }
}

// Reads into the existing records and adds the missing ones.
void ReadStyles(CArchive& ar, k_LineDefList& styles, int count)
{
    styles.Cut(count); // raises an exception for a negative count
    if (count > k_MaxStoredRecords)
        AfxThrowArchiveException(CArchiveException::genericException, nullptr);
    styles.SetSize(std::max<INT_PTR>(styles.GetSize(), std::min(count, maxPreallocated)));
    for (int i = 0; i < count; ++i) {
        k_LineDef* const pHeld = i < styles.GetSize() ? styles.GetAt(i) : nullptr;
        if (pHeld != nullptr) {
            ReadStyle(ar, *pHeld);
            continue;
        }
        auto style = std::make_unique<k_LineDef>();
        ReadStyle(ar, *style);
        styles.SetAtGrow(i, style.get());
        static_cast<void>(style.release());
    }
}

} // namespace

void k_StyleAtlas::Serialize(CArchive& ar)
{
    if (ar.IsStoring())
        WriteRows(ar);
    else
        ReadRows(ar);
}

void k_StyleAtlas::WriteRows(CArchive& ar)
{
    DWORD filled = 0;
    for (INT_PTR i = 0; i < Rows.GetSize(); ++i)
        filled += GetRow(i) != nullptr ? 1 : 0;
    k_SerializeLayoutHead(ar, Version, ColumnCount, filled);
    for (INT_PTR i = 0; i < Rows.GetSize(); ++i) {
        if (k_QuantityDesc* const pRow = GetRow(i)) {
            pRow->Serialize(ar);
            continue;
        }
        CString text;
        text.Format(_T("pDesc == NULL\n%d"), static_cast<int>(i));
        MessageBoxW(nullptr, text, _T("Error"), MB_OK);
    }
}

void k_StyleAtlas::ReadRows(CArchive& ar)
{
    DWORD stored = 0;
    k_SerializeLayoutHead(ar, Version, ColumnCount, stored);
    if (stored == 0)
        return;
    INT_PTR replacementsLeft = Rows.GetSize() + k_MaxReplacedRows;
    try {
        k_RowIndex index(*this);
        std::unique_ptr<k_QuantityDesc> row;
        for (DWORD i = 0; i < stored; ++i) {
            if (!row)
                row = std::make_unique<k_QuantityDesc>();
            row->Serialize(ar);
            const INT_PTR end = Rows.GetSize();
            const INT_PTR position = index.PositionOf(*row, end);
            if (position == end) {
                AddOwned(Rows, std::exchange(row, nullptr));
            } else {
                if (replacementsLeft-- == 0)
                    AfxThrowArchiveException(CArchiveException::genericException, nullptr);
                // The replaced row is reused for the next one, so that reading a table over a catalogue needs
                // no second set of records.
                k_QuantityDesc* const pReplaced = GetRow(position);
                Rows.SetAt(position, row.release());
                row.reset(pReplaced);
            }
        }
    } catch (const std::bad_alloc&) {
        AfxThrowMemoryException();
    }
}

void k_SerializeLayoutHead(CArchive& ar, DWORD& version, DWORD& columnCount, DWORD& rowCount)
{
    if (ar.IsStoring())
        ar << version << columnCount << rowCount;
    else
        ar >> version >> columnCount >> rowCount;
}

void k_QuantityDesc::Serialize(CArchive& ar)
{
    if (ar.IsStoring()) {
        ar.WriteAll(static_cast<int>(Styles.GetSize()), Device, Quantity, SubQuantity, Index, Flags,
                    static_cast<BYTE>(ReservedFlag), Level);
        WriteStyles(ar, Styles);
    } else {
        ar >> ColumnCount;
        ar >> Device >> Quantity >> SubQuantity >> Index >> Flags >> ReservedFlag >> Level;
        ReadStyles(ar, Styles, ColumnCount);
    }
}

void k_LineDef::Serialize(CArchive& ar)
{
    if (ar.IsStoring())
        WriteStyle(ar, *this);
    else
        ReadStyle(ar, *this);
}
