// The layout file: the writer and the reader of the atlas, of its rows and of their records, side by side.
// The format is told in docs/layout-format.md.
#include "OwnedElement.h"
#include "StyleAtlas.h"

#include <afxwin.h>
#include <algorithm>
#include <map>
#include <new>
#include <tuple>
#include <utility>

namespace
{

// Places that a row gets at once, whatever number of records its file claims: the list grows beyond them only
// as records do follow.
constexpr int placesBelieved = 64;

// A host's number of a file column has 16 bits with a sign, so no record beyond could be asked for. Bounds
// what a file with holes, which takes no room on the disk, can take of the memory.
constexpr int mostRecords = 1 << 15;

// Rows that have come in place of others, beyond those of the catalogue: only equal rows of a catalogue make
// such a file. Bounds the time that a file with holes can take.
constexpr INT_PTR mostTwins = 1 << 20;

// A record in the file, all at once: a table has a hundred thousand.
#pragma pack(push, 1)
struct StoredStyle {
    WORD Reserved;
    COLORREF LineColor;
    COLORREF SymbolColor;
    short SymbolShape;
    short SymbolSize;
    short SymbolFill;
    short LineStyle;
    short LineWidth;
    BYTE UseSymbolColor;
};
#pragma pack(pop)
static_assert(sizeof(StoredStyle) == 21);

// Any order will do, but for a hash, which a hostile file could defeat.
struct KeyOrder {
    bool operator()(const QuantityKey& first, const QuantityKey& second) const
    {
        const auto members = [](const QuantityKey& key) {
            return std::tie(key.Quantity, key.SubQuantity, key.Device, key.Index, key.Flags);
        };
        return members(first) < members(second);
    }
};

// Where each key stands first in the table. It finds what a walk from the first row would find, without the
// walk.
class RowIndex
{
public:
    explicit RowIndex(const k_StyleAtlas& atlas)
    {
        const INT_PTR size = atlas.Rows.GetSize();
        for (INT_PTR i = 0; i < size; ++i) {
            if (const k_QuantityDesc* const pRow = atlas.GetRow(i))
                PositionOf(*pRow, i);
        }
    }

    // The position of the first row with this row's key; if there is none, the row's own from now on.
    INT_PTR PositionOf(const k_QuantityDesc& row, INT_PTR ownPosition)
    {
        QuantityKey key;
        row.GetKey(key);
        return m_positions.try_emplace(key, ownPosition).first->second;
    }

private:
    std::map<QuantityKey, INT_PTR, KeyOrder> m_positions;
};

void WriteStyles(CArchive& ar, const k_LineDefList& styles)
{
    for (INT_PTR i = 0; i < styles.GetSize(); ++i) {
        if (k_LineDef* const pStyle = styles.GetAt(i))
            pStyle->Serialize(ar);
        else
            k_LineDef().Serialize(ar); // an empty place
    }
}

// The records that the list holds are read into, not made again.
void ReadStyles(CArchive& ar, k_LineDefList& styles, int count)
{
    styles.Cut(count); // refuses a count below 0
    if (count > mostRecords)
        AfxThrowArchiveException(CArchiveException::genericException, nullptr);
    styles.SetSize(std::max<INT_PTR>(styles.GetSize(), std::min(count, placesBelieved)));
    for (int i = 0; i < count; ++i) {
        k_LineDef* const pHeld = i < styles.GetSize() ? styles.GetAt(i) : nullptr;
        if (pHeld != nullptr) {
            pHeld->Serialize(ar);
            continue;
        }
        auto style = std::make_unique<k_LineDef>();
        style->Serialize(ar);
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
    ar << Version << ColumnCount << filled;
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
    ar >> Version >> ColumnCount >> stored;
    if (stored == 0)
        return;
    INT_PTR twinsLeft = Rows.GetSize() + mostTwins;
    try {
        RowIndex index(*this);
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
                if (twinsLeft-- == 0)
                    AfxThrowArchiveException(CArchiveException::genericException, nullptr);
                // The row that has to go is the next to be read into: a table over a catalogue takes no
                // second set of records.
                k_QuantityDesc* const pReplaced = GetRow(position);
                Rows.SetAt(position, row.release());
                row.reset(pReplaced);
            }
        }
    } catch (const std::bad_alloc&) {
        AfxThrowMemoryException();
    }
}

void k_QuantityDesc::Serialize(CArchive& ar)
{
    if (ar.IsStoring()) {
        ar << static_cast<int>(Styles.GetSize());
        ar << Device << Quantity << SubQuantity << Index << Flags << ReservedFlag << Level;
        WriteStyles(ar, Styles);
    } else {
        ar >> ColumnCount;
        ar >> Device >> Quantity >> SubQuantity >> Index >> Flags >> ReservedFlag >> Level;
        ReadStyles(ar, Styles, ColumnCount);
    }
}

void k_LineDef::Serialize(CArchive& ar)
{
    StoredStyle stored{};
    if (ar.IsStoring()) {
        stored = {Reserved,   LineColor, SymbolColor, SymbolShape,   SymbolSize,
                  SymbolFill, LineStyle, LineWidth,   UseSymbolColor};
        ar.Write(&stored, sizeof stored);
    } else {
        ar.EnsureRead(&stored, sizeof stored);
        Reserved = stored.Reserved;
        LineColor = stored.LineColor;
        SymbolColor = stored.SymbolColor;
        SymbolShape = stored.SymbolShape;
        SymbolSize = stored.SymbolSize;
        SymbolFill = stored.SymbolFill;
        LineStyle = stored.LineStyle;
        LineWidth = stored.LineWidth;
        UseSymbolColor = stored.UseSymbolColor != 0;
    }
}
