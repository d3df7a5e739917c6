// The reader of the layout file on any bytes at all: what it takes in has to come back from a second reading
// of what it writes, and what it refuses must do no harm.
#include "FuzzCatalogue.h"

#include <LayoutBytes.h>
#include <cstdio>
#include <cstdlib>
#include <system/MessageDoor.h>

namespace
{

void Require(bool holds, const char* what)
{
    if (holds)
        return;
    std::fprintf(stderr, "layout-fuzz: %s\n", what);
    std::abort();
}

// A file that the reader refuses raises an exception of the framework's; any other ends the run.
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

} // namespace

extern "C" {

// What the fuzzer calls; the linker has to see them.
[[gnu::visibility("default")]] int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/)
{
    SetMessageDoor([](HWND, LPCWSTR, LPCWSTR, UINT) { return IDOK; });
    test::SetUnits(fuzz::CatalogueEntries());
    return 0;
}

[[gnu::visibility("default")]] int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    k_StyleAtlas atlas;
    BuildFresh(atlas);
    const INT_PTR catalogueRows = atlas.Rows.GetSize();
    IsTaken(atlas, {reinterpret_cast<const char*>(data), size}); // or refused
    Require(atlas.Rows.GetSize() >= catalogueRows, "a row of the catalogue is gone");
    // What a refused file left behind is a table as good as any.
    RequireRoundTrip(atlas);
    return 0;
}

} // extern "C"
