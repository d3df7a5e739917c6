// Writes the seeds, a folder for each fuzzer: files of each valid shape, by the product itself.
#include "FuzzCatalogue.h"

#include <LayoutBytes.h>
#include <TempPrefix.h>

namespace
{

constexpr std::pair<const char*, void (*)(k_StyleAtlas&)> layouts[] = {
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

using namespace std::string_literals;
using Folder = std::filesystem::path;

void MakeLayouts(const Folder& folder)
{
    test::SetUnits(fuzz::CatalogueEntries());
    for (const auto& [name, apply] : layouts) {
        k_StyleAtlas atlas;
        atlas.BuildCatalogue();
        apply(atlas);
        test::WriteWhole(folder / name, test::BytesOf(atlas));
    }
}

// The first byte of a value is its type.
void MakeValues(const Folder& folder)
{
    for (const std::u16string& text : {u"C:\\a\\Style.Atlas"s, u"/a/\xD83D\xDE00"s,
                                       std::u16string(1023, u'a'), std::u16string(1024, u'a')}) {
        const std::string bytes(reinterpret_cast<const char*>(text.c_str()), 2 * text.size() + 2);
        test::WriteWhole(folder / std::to_string(text.size()), static_cast<char>(REG_SZ) + bytes);
    }
}

void MakeRegistry(const Folder& folder)
{
    const test::TempPrefix prefix;
    k_StyleAtlas atlas;
    for (const LPCTSTR key : {_T("S-1\\Other"), _T("S-1\\Any"), _T("S-2\\Any")}) {
        atlas.RegistryPath = key;
        atlas.SetFilePath(_T("C:\\a\\Style.Atlas"));
    }
    std::filesystem::copy(prefix.Path() / "registry.db", folder / "keys");
}

} // namespace

// The argument is the folder. An unwritable one ends the program with an exception.
int main(int /*count*/, char** argv)
{
    const auto made = [&](const char* name) {
        std::filesystem::create_directories(Folder(argv[1]) / name);
        return Folder(argv[1]) / name;
    };
    test::WriteWhole(made("units") / "forms",
                     "* ;0x10;*;*;*;U;Voltage\n4;16;2;12;0x3;U_12;\n-1;16;0;0;0;\u20AC;a\n");
    test::WriteWhole(made("document") / "row", R"({"version": 1, "fileColumns": 32, "rows": [
    {"symbol": "U", "key": {"quantity": 30, "subQuantity": 1, "index": 0, "device": -1, "flags": 2}, "level": 1,
     "reserved": true, "styles": [{"columns": "0-31", "shape": "cross", "fill": 9, "size": 10, "color": "#A52A00",
     "line": "none", "width": 1, "lineColor": "#A52A0001", "useSymbolColor": false, "reserved": 7}]}]})");
    MakeLayouts(made("layout"));
    MakeValues(made("values"));
    MakeRegistry(made("registry"));
}
