// Writes the seeds of the layout fuzzer into a folder: a whole file of each shape that the reader tells
// apart.
#include "FuzzCatalogue.h"

#include <LayoutBytes.h>
#include <TempPrefix.h>
#include <cstdio>

namespace
{

struct Seed {
    const char* Name;
    void (*Apply)(k_StyleAtlas&);
};

constexpr Seed seeds[] = {
    {"catalogue", [](k_StyleAtlas& atlas) { atlas.ApplyDefaultStyles(); }},
    {"no-rows", [](k_StyleAtlas& atlas) { atlas.Clear(); }},
    {"unknown-row", [](k_StyleAtlas& atlas) { atlas.AddRow({.Quantity = 900, .Index = 3}, 2); }},
    {"one-row-twice", [](k_StyleAtlas& atlas) { atlas.AddRow({.Quantity = 1}, 0); }},
    {"no-records", [](k_StyleAtlas& atlas) { atlas.GetRow(0)->Styles.Clear(); }},
    {"many-records",
     [](k_StyleAtlas& atlas) {
         for (int i = 0; i < k_MaxFileColumns; ++i)
             atlas.GetRow(0)->Styles.Add(new k_LineDef);
     }},
    {"many-columns", [](k_StyleAtlas& atlas) { atlas.ColumnCount = 4000000000; }},
};

} // namespace

// A folder that can't be written to ends it.
int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: make-corpus <folder>\n");
        return EXIT_FAILURE;
    }
    test::SetUnits(fuzz::CatalogueEntries());
    for (const Seed& seed : seeds) {
        k_StyleAtlas atlas;
        atlas.BuildCatalogue();
        seed.Apply(atlas);
        test::WriteWhole(std::filesystem::path(argv[1]) / seed.Name, test::BytesOf(atlas));
    }
    return EXIT_SUCCESS;
}
