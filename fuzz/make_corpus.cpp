// Writes seeds into a folder, a folder in it for each fuzzer: whole files of each shape that a reader tells
// apart, made by the calls that write such files.
#include "FuzzCatalogue.h"
#include "FuzzResources.h"

#include <LayoutBytes.h>
#include <TempPrefix.h>
#include <cstdio>

namespace
{

struct Seed {
    const char* Name;
    void (*Apply)(k_StyleAtlas&);
};

constexpr Seed layouts[] = {
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
    for (const Seed& seed : layouts) {
        k_StyleAtlas atlas;
        atlas.BuildCatalogue();
        seed.Apply(atlas);
        test::WriteWhole(folder / seed.Name, test::BytesOf(atlas));
    }
}

// A value begins with a byte that is its type.
void MakeValues(const Folder& folder)
{
    for (const std::u16string& text : {u"C:\\a\\Style.Atlas"s, u"/a/\xD83D\xDE00"s,
                                       std::u16string(1023, u'a'), std::u16string(1024, u'a')}) {
        const std::string bytes(reinterpret_cast<const char*>(text.c_str()), 2 * text.size() + 2);
        for (const char type : {REG_SZ, REG_EXPAND_SZ}) {
            const std::string name = std::to_string(text.size()) + '-' + std::to_string(type);
            test::WriteWhole(folder / name, type + bytes);
        }
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

void MakeResources(const Folder& folder)
{
    const std::string older = test::ReadWhole(OLDER_RESOURCES);
    const auto write = [&](const std::string& name, fuzz::Bytes bytes) {
        test::WriteWhole(folder / name, {reinterpret_cast<const char*>(bytes.data()), bytes.size()});
    };
    for (const auto file : {std::as_bytes(std::span(ModuleResources.Bytes, ModuleResources.Size)),
                            std::as_bytes(std::span(older))}) {
        write("file-" + std::to_string(file.size()), file);
        fuzz::ForEachResource(file, [&](ResourceType type, int id, fuzz::Bytes bytes) {
            write(std::to_string(static_cast<int>(type)) + '-' + std::to_string(id), bytes);
        });
    }
}

} // namespace

// A folder that can't be written to ends it.
int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: make-corpus <folder>\n");
        return EXIT_FAILURE;
    }
    using Maker = void (*)(const Folder&);
    for (const auto& [name, make] : {std::pair<const char*, Maker>{"layout", MakeLayouts},
                                     {"registry", MakeRegistry},
                                     {"resources", MakeResources},
                                     {"values", MakeValues}}) {
        const Folder folder = Folder(argv[1]) / name;
        std::filesystem::create_directories(folder);
        make(folder);
    }
    return EXIT_SUCCESS;
}
