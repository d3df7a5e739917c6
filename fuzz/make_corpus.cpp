// Writes the seeds of the layout fuzzer into a folder: whole files of each shape that the reader tells apart,
// and damaged ones.
#include "FuzzCatalogue.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>

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

std::string Contents(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void Write(const std::filesystem::path& path, const std::string& bytes)
{
    std::ofstream file(path, std::ios::binary);
    file << bytes;
    if (!file.flush())
        throw std::filesystem::filesystem_error("cannot write", path,
                                                std::make_error_code(std::errc::io_error));
}

void Run(const std::filesystem::path& folder)
{
    test::SetUnits(fuzz::CatalogueEntries());
    for (const Seed& seed : wholeFiles) {
        k_StyleAtlas atlas;
        atlas.BuildCatalogue();
        seed.Apply(atlas);
        const std::filesystem::path path = std::filesystem::absolute(folder / seed.Name);
        atlas.Save(path.u16string().c_str());
        if (Contents(path).size() < headerSize)
            throw std::filesystem::filesystem_error("cannot write", path,
                                                    std::make_error_code(std::errc::io_error));
    }
    const std::string whole = Contents(folder / wholeFiles[0].Name);
    const auto damaged = [&whole](std::size_t offset, char value) {
        std::string bytes = whole;
        bytes.replace(offset, sizeof(DWORD), sizeof(DWORD), value);
        return bytes;
    };
    Write(folder / "empty", {});
    Write(folder / "cut-in-header", whole.substr(0, headerSize - 1));
    Write(folder / "cut-in-record", whole.substr(0, whole.size() / 2));
    Write(folder / "bytes-after-the-end", whole + "the end");
    Write(folder / "endless-rows", damaged(rowCountOffset, '\xFF'));
    Write(folder / "endless-records", damaged(recordCountOffset, '\x7F'));
    Write(folder / "negative-records", damaged(recordCountOffset, '\xFF'));
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
    } catch (CException* e) {
        e->Delete();
        std::fprintf(stderr, "cannot write the seeds\n");
    }
    return EXIT_FAILURE;
}
