// The reader of the layout file: what it accepts survives a round trip, and what it refuses does no harm.
#include "Fuzz.h"
#include "FuzzCatalogue.h"

#include <LayoutBytes.h>
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
        Require(atlas.GetRow(row)->Styles.GetSize() == atlas.ColumnCount, "a catalogue row lacks records");
}

void RequireRoundTrip(k_StyleAtlas& atlas)
{
    const std::string written = test::BytesOf(atlas);
    k_StyleAtlas again;
    BuildFresh(again);
    Require(IsTaken(again, written), "a file that was written is refused");
    Require(test::BytesOf(again) == written, "the second file differs from the first");
}

} // namespace

void fuzz::Try(std::string_view bytes)
{
    [[maybe_unused]] static const bool isPrepared = [] {
        SetMessageBoxHook([](HWND, LPCWSTR, LPCWSTR, UINT) { return IDOK; });
        test::SetUnits(CatalogueEntries());
        return true;
    }();
    k_StyleAtlas atlas;
    BuildFresh(atlas);
    const INT_PTR catalogueRows = atlas.Rows.GetSize();
    IsTaken(atlas, bytes);
    Require(atlas.Rows.GetSize() >= catalogueRows, "a row of the catalogue is gone");
    RequireRoundTrip(atlas); // after a refused file, too
}
