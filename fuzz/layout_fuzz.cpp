// The reader of the layout file: what it accepts survives writing and reading again, what it refuses does no
// harm, and the sample host's reader agrees.
#include "Fuzz.h"
#include "FuzzCatalogue.h"

#include <LayoutBytes.h>
#include <host/LayoutFile.h>
#include <map>
#include <system/MessageBoxHook.h>

namespace
{

using fuzz::Require;

// False for a refused file, which raises a framework exception; any other exception ends the run.
bool IsTaken(k_StyleAtlas& atlas, std::string_view bytes)
{
    try {
        test::ReadInto(atlas, bytes);
        return true;
    } catch (CException* e) {
        e->Delete();
        return false;
    }
}

void BuildFresh(k_StyleAtlas& atlas)
{
    const INT_PTR rows = atlas.BuildCatalogue();
    for (INT_PTR row = 0; row < rows; ++row)
        Require(atlas.GetRow(row)->Styles.GetSize() == atlas.ColumnCount,
                "a row of the catalogue lacks records");
}

void RequireRoundTrip(k_StyleAtlas& atlas)
{
    const std::string written = test::BytesOf(atlas);
    k_StyleAtlas again;
    BuildFresh(again);
    Require(IsTaken(again, written), "a file that was written is refused");
    Require(test::BytesOf(again) == written, "the second file differs from the first");
}

atlashost::LayoutRecord Seen(const k_LineDef& held)
{
    return {held.Reserved,
            {held.SymbolColor, held.SymbolShape, held.SymbolSize, held.SymbolFill, held.LineColor,
             held.LineStyle, held.LineWidth, static_cast<std::uint8_t>(held.UseSymbolColor)}};
}

void RequireSame(const atlashost::LayoutFile& file, const k_StyleAtlas& atlas)
{
    Require(file.Version() == atlas.Version && file.ColumnCount() == atlas.ColumnCount, "the heads differ");
    std::map<atlashost::RowIdentity, const atlashost::LayoutRow*> lastRows;
    for (const atlashost::LayoutRow& row : file.Rows())
        lastRows[row.identity] = &row;
    for (const auto& [identity, row] : lastRows) {
        const QuantityKey key{identity.quantity, identity.subQuantity, identity.index, identity.device,
                              identity.flags};
        QuantityKey heldKey;
        const k_QuantityDesc* const held = atlas.GetRow(atlas.FindRow(key));
        Require(held != nullptr && held->GetKey(heldKey) && heldKey == key &&
                    held->Styles.GetSize() == static_cast<INT_PTR>(row->recordCount) &&
                    held->Level == row->level && held->ReservedFlag == row->reservedFlag,
                "the rows differ");
        for (std::size_t i = 0; i < row->recordCount; ++i)
            Require(file.RecordOf(*row, i) == Seen(*held->Styles.GetAt(static_cast<INT_PTR>(i))),
                    "the records differ");
    }
}

} // namespace

void fuzz::Try(std::string_view bytes)
{
    static const bool isPrepared = [] {
        SetMessageBoxHook([](HWND, LPCWSTR, LPCWSTR, UINT) { return IDOK; });
        test::SetUnits(CatalogueEntries());
        return true;
    }();
    static_cast<void>(isPrepared);
    k_StyleAtlas atlas;
    BuildFresh(atlas);
    const INT_PTR catalogueRows = atlas.Rows.GetSize();
    const bool isTaken = IsTaken(atlas, bytes);
    Require(atlas.Rows.GetSize() >= catalogueRows, "a row of the catalogue is gone");
    const atlashost::LayoutFile file{std::string(bytes)};
    Require(isTaken == !file.Damage(), "one reader takes what the other refuses");
    if (isTaken)
        RequireSame(file, atlas);
    // A refused file must leave a valid table behind.
    RequireRoundTrip(atlas);
}
