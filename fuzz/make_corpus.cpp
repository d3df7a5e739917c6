// Writes the seeds of the layout fuzzer into a folder: whole files of each shape that the reader tells apart,
// and damaged ones.
#include "FuzzCatalogue.h"

#include <LayoutBytes.h>
#include <TempPrefix.h>
#include <cstdio>
#include <exception>

namespace
{

using Change = void (*)(k_StyleAtlas&);

constexpr std::size_t headerSize = 12;        // bytes
constexpr std::size_t rowCountOffset = 8;     // in the file
constexpr std::size_t recordCountOffset = 12; // of the first row, in the file

struct Seed {
    const char* Name;
    Change Apply;
};

k_QuantityDesc& FirstRow(k_StyleAtlas& atlas)
{
    return *atlas.GetRow(0);
}

constexpr Seed wholeFiles[] = {
    {"catalogue", [](k_StyleAtlas&) {}},
    {"default-styles", [](k_StyleAtlas& atlas) { atlas.ApplyDefaultStyles(); }},
    {"no-rows", [](k_StyleAtlas& atlas) { atlas.Clear(); }},
    {"unknown-row", [](k_StyleAtlas& atlas) { atlas.AddRow({.Quantity = 900, .Index = 3}, 2); }},
    {"one-row-twice",
     [](k_StyleAtlas& atlas) {
         atlas.ColumnCount = 2;
         atlas.AddRow({.Quantity = 1}, 0);
     }},
    {"few-records", [](k_StyleAtlas& atlas) { FirstRow(atlas).Styles.Cut(1); }},
    {"no-records", [](k_StyleAtlas& atlas) { FirstRow(atlas).Styles.Clear(); }},
    {"many-records",
     [](k_StyleAtlas& atlas) {
         for (int i = 0; i < k_MaxFileColumns * 2; ++i)
             FirstRow(atlas).Styles.Add(new k_LineDef);
     }},
    {"other-version",
     [](k_StyleAtlas& atlas) {
         atlas.Version = 7;
         atlas.ColumnCount = 4000000000;
     }},
};

void Run(const std::filesystem::path& folder)
{
    test::SetUnits(fuzz::CatalogueEntries());
    for (const Seed& seed : wholeFiles) {
        k_StyleAtlas atlas;
        atlas.BuildCatalogue();
        seed.Apply(atlas);
        test::WriteWhole(folder / seed.Name, test::BytesOf(atlas));
    }
    const std::string whole = test::ReadWhole(folder / wholeFiles[0].Name);
    const auto damaged = [&whole](std::size_t offset, char value) {
        std::string bytes = whole;
        bytes.replace(offset, sizeof(DWORD), sizeof(DWORD), value);
        return bytes;
    };
    test::WriteWhole(folder / "empty", {});
    test::WriteWhole(folder / "cut-in-header", whole.substr(0, headerSize - 1));
    test::WriteWhole(folder / "cut-in-record", whole.substr(0, whole.size() / 2));
    test::WriteWhole(folder / "bytes-after-the-end", whole + "the end");
    test::WriteWhole(folder / "endless-rows", damaged(rowCountOffset, '\xFF'));
    test::WriteWhole(folder / "endless-records", damaged(recordCountOffset, '\x7F'));
    test::WriteWhole(folder / "negative-records", damaged(recordCountOffset, '\xFF'));
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: make-corpus <folder>\n");
        return EXIT_FAILURE;
    }
    try {
        Run(argv[1]);
        return EXIT_SUCCESS;
    } catch (const std::exception& e) {
        std::fprintf(stderr, "%s\n", e.what());
    }
    return EXIT_FAILURE;
}
