// The catalogue, and the layout file written and read, against JSON and against bare loops.
#include "PeerStore.h"
#include "ScriptedModel.h"
#include "Suite.h"
#include "TempFolder.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace
{

constexpr double goalAgainstJson = 0.1;
constexpr double goalAgainstLoop = 2;
constexpr std::size_t catalogueSizes[] = {150, 1500, 15000}; // entries
constexpr WORD maxQuantities = 65535;
constexpr WORD tableSizes[] = {30, 300, 3000}; // rows

// Ten entries per quantity: three sub-quantities, two of them with indexes. Every third quantity is measured
// by two devices.
std::vector<test::UnitEntry> RealisticEntries(std::size_t count)
{
    constexpr std::size_t groupSize = 10;
    constexpr std::size_t indexes = 4;
    std::vector<test::UnitEntry> entries;
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t group = i / groupSize;
        const std::size_t place = i % groupSize;
        test::UnitEntry entry;
        entry.Quantity = static_cast<WORD>(group + 1);
        entry.SubQuantity = static_cast<int>(place / indexes);
        entry.Index = static_cast<WORD>(place % indexes);
        entry.Device = static_cast<WORD>(group % 3 == 0 ? place % 2 : 0);
        entry.Flags = static_cast<DWORD>(place % 2);
        entries.push_back(entry);
    }
    return entries;
}

void AddCatalogue(bench::Suite& suite, const std::string& size, const std::vector<test::UnitEntry>& entries)
{
    test::SetUnits(entries);
    const auto rows = static_cast<std::size_t>(k_StyleAtlas().BuildCatalogue());
    const std::string name = "BuildCatalogue, " + size;
    const std::string peer = "allocations, " + size;
    suite.Add(name, static_cast<double>(rows), [entries](benchmark::State& state) {
        test::SetUnits(entries);
        for ([[maybe_unused]] const auto iteration : state) {
            k_StyleAtlas atlas;
            atlas.BuildCatalogue();
        }
    });
    suite.Add(peer, static_cast<double>(rows), [rows](benchmark::State& state) {
        for ([[maybe_unused]] const auto iteration : state)
            benchmark::DoNotOptimize(bench::MakePlainTable(rows).data());
    });
    suite.Compare({.Name = name, .Ours = name, .Peer = peer});
}

bench::PlainTable PlainCopy(const k_StyleAtlas& atlas)
{
    bench::PlainTable table = bench::MakePlainTable(static_cast<std::size_t>(atlas.Rows.GetSize()));
    for (std::size_t i = 0; i < table.size(); ++i) {
        const k_QuantityDesc& row = *atlas.GetRow(static_cast<INT_PTR>(i));
        table[i]->Device = row.Device;
        table[i]->Quantity = row.Quantity;
        for (int column = 0; column < bench::plainColumns; ++column) {
            const k_LineDef& from = *row.Styles.GetAt(column);
            bench::PlainStyle& to = *table[i]->Styles[static_cast<std::size_t>(column)];
            to.LineColor = from.LineColor;
            to.SymbolColor = from.SymbolColor;
            to.SymbolShape = from.SymbolShape;
            to.SymbolFill = from.SymbolFill;
        }
    }
    return table;
}

// Quantities with nine indexes, each of which becomes ten rows: a group row and nine below it.
std::vector<test::UnitEntry> EntriesOfRows(WORD rows)
{
    constexpr WORD rowsOfGroup = 10;
    std::vector<test::UnitEntry> entries;
    for (WORD row = 0; row < rows; ++row) {
        const auto index = static_cast<WORD>(row % rowsOfGroup);
        if (index != 0)
            entries.push_back({.Quantity = static_cast<WORD>(row / rowsOfGroup + 1), .Index = index});
    }
    return entries;
}

// The files and tables of one table size, shared by its measurements, each of which leaves its file in place.
struct Stored {
    WORD Rows = 0;
    std::filesystem::path Layout;
    std::filesystem::path Json;
    std::filesystem::path Loop;
    std::string LayoutBytes;
    bench::PlainTable Table;
    k_StyleAtlas Atlas;
};

std::shared_ptr<Stored> MakeStored(const bench::TempFolder& folder, WORD rows)
{
    auto stored = std::make_shared<Stored>();
    stored->Rows = rows;
    const std::filesystem::path stem = folder.Path() / std::to_string(rows);
    std::filesystem::create_directory(stem); // a folder of its own, as for a real layout file
    stored->Layout = stem / "Style.Atlas";
    stored->Json = stem / "style.json";
    stored->Loop = stem / "loop.bytes";

    test::SetUnits(EntriesOfRows(rows));
    stored->Atlas.BuildCatalogue();
    stored->Atlas.ApplyDefaultStyles();
    stored->Atlas.Save(stored->Layout.u16string().c_str());
    std::ifstream file(stored->Layout, std::ios::binary);
    stored->LayoutBytes.assign(std::istreambuf_iterator<char>(file), {});
    stored->Table = PlainCopy(stored->Atlas);
    bench::JsonSave(stored->Json, stored->Table);
    k_StyleAtlas again;
    if (again.Load(stored->Layout.u16string().c_str()) != 0 || again.Rows.GetSize() != rows ||
        bench::JsonLoad(stored->Json).size() != rows)
        throw std::runtime_error("a stored table does not come back");
    return stored;
}

struct Side {
    const char* Name;
    std::function<void(Stored&)> Work;
};

void AddComparison(bench::Suite& suite, const std::shared_ptr<Stored>& stored, const Side& ours,
                   const Side& json, const Side& loop, bool waitsForDisk)
{
    const std::string suffix = ", " + std::to_string(stored->Rows) + " rows";
    for (const Side& side : {ours, json, loop}) {
        suite.Add(side.Name + suffix, stored->Rows, [stored, work = side.Work](benchmark::State& state) {
            test::SetUnits(EntriesOfRows(stored->Rows));
            for ([[maybe_unused]] const auto iteration : state)
                work(*stored);
        });
    }
    const std::string name = ours.Name + suffix;
    for (const auto& [peer, goal] : {std::pair(json, goalAgainstJson), std::pair(loop, goalAgainstLoop)})
        suite.Compare({.Name = name,
                       .Ours = name,
                       .Peer = peer.Name + suffix,
                       .Goal = goal,
                       .WaitsForDisk = waitsForDisk});
}

void AddTableSize(bench::Suite& suite, const std::shared_ptr<Stored>& stored)
{
    AddComparison(
        suite, stored,
        {"Load",
         [](Stored& s) {
             k_StyleAtlas atlas;
             atlas.Load(s.Layout.u16string().c_str());
         }},
        {"JSON load", [](Stored& s) { benchmark::DoNotOptimize(bench::JsonLoad(s.Json).data()); }},
        {"loop load", [](Stored& s) { benchmark::DoNotOptimize(bench::BareLoad(s.Layout, s.Rows).data()); }},
        false);
    AddComparison(
        suite, stored, {"Save", [](Stored& s) { s.Atlas.Save(s.Layout.u16string().c_str()); }},
        {"JSON save", [](Stored& s) { bench::JsonSave(s.Json, s.Table); }},
        {"loop save", [](Stored& s) { bench::ReplaceFile(s.Loop, s.LayoutBytes, s.LayoutBytes.size()); }},
        true);
}

int Run(int argc, char** argv)
{
    bench::Suite suite(argc, argv, {"--benchmark_repetitions=11", "--benchmark_min_time=0.05"});
    const bench::TempFolder folder;
    for (const std::size_t count : catalogueSizes)
        AddCatalogue(suite, std::to_string(count) + " entries", RealisticEntries(count));
    AddCatalogue(suite, "65535 quantities", test::SingleQuantities(maxQuantities));
    suite.Run();
    for (const WORD rows : tableSizes)
        AddTableSize(suite, MakeStored(folder, rows));
    suite.Run();
    suite.PrintTable(std::string("Catalogue and layout file, files ") + folder.Place(),
                     bench::threadTime + "a row");
    return EXIT_SUCCESS;
}

} // namespace

int main(int argc, char** argv)
{
    return bench::RunProgram(argc, argv, Run);
}
