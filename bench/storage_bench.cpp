// The catalogue, and the layout file written and read, against JSON and against bare loops; and how their
// times grow with the table.
#include "PeerStore.h"
#include "ScriptedModel.h"
#include "Suite.h"
#include "TempFolder.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <malloc.h>
#include <stdexcept>

namespace
{

constexpr double goalAgainstJson = 0.1;
constexpr double goalAgainstLoop = 2;
constexpr double goalOnDisk = 1.5;
// Of the time a row, from a table to one of twice or ten times its rows, with which the share of new pages
// grows.
constexpr double growthGoal = 1.5;
constexpr double maxRowSize = 1474;                          // bytes
constexpr std::size_t catalogueSizes[] = {150, 1500, 15000}; // entries
constexpr WORD singleRows[] = {3000, 30000, 65535};          // entries that become a row each
constexpr WORD tableSizes[] = {30, 300, 3000};               // rows
constexpr WORD largeTable = 30000;                           // rows
constexpr WORD tableSizesOnDisk[] = {300, 3000};

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

// Returns the name of the library's measurement.
std::string AddCatalogue(bench::Suite& suite, const std::string& size,
                         const std::vector<test::UnitEntry>& entries)
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
    return name;
}

void AddCatalogues(bench::Suite& suite)
{
    for (const std::size_t count : catalogueSizes)
        AddCatalogue(suite, std::to_string(count) + " entries", RealisticEntries(count));
    std::string smaller;
    for (const WORD count : singleRows) {
        const std::string name =
            AddCatalogue(suite, std::to_string(count) + " single rows", test::SingleQuantities(count));
        if (!smaller.empty())
            suite.Compare({.Name = name, .Ours = name, .Peer = smaller, .Goal = growthGoal});
        smaller = name;
    }
}

std::size_t AllocatedBytes()
{
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

void RecordRowSize(bench::Suite& suite)
{
    test::SetUnits(test::SingleQuantities(largeTable));
    k_StyleAtlas atlas;
    const std::size_t before = AllocatedBytes();
    const INT_PTR rows = atlas.BuildCatalogue();
    const std::string name = "memory of a row, bytes";
    suite.Record(name, static_cast<double>(AllocatedBytes() - before) / static_cast<double>(rows));
    suite.Compare({.Name = name, .Ours = name, .Peer = {}, .Goal = maxRowSize});
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

enum class Peers { JsonAndLoop, Loop };

std::shared_ptr<Stored> MakeStored(const bench::TempFolder& folder, WORD rows, Peers peers)
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
    if (peers == Peers::JsonAndLoop)
        bench::JsonSave(stored->Json, stored->Table);
    k_StyleAtlas again;
    if (again.Load(stored->Layout.u16string().c_str()) != 0 || again.Rows.GetSize() != rows ||
        (peers == Peers::JsonAndLoop && bench::JsonLoad(stored->Json).size() != rows))
        throw std::runtime_error("a stored table does not come back");
    return stored;
}

using Work = void (*)(Stored&);

void Load(Stored& s)
{
    k_StyleAtlas atlas;
    atlas.Load(s.Layout.u16string().c_str());
}

void Save(Stored& s)
{
    s.Atlas.Save(s.Layout.u16string().c_str());
}

void JsonLoad(Stored& s)
{
    benchmark::DoNotOptimize(bench::JsonLoad(s.Json).data());
}

void JsonSave(Stored& s)
{
    bench::JsonSave(s.Json, s.Table);
}

void LoopLoad(Stored& s)
{
    benchmark::DoNotOptimize(bench::BareLoad(s.Layout, s.Rows).data());
}

void LoopSave(Stored& s)
{
    bench::ReplaceFile(s.Loop, s.LayoutBytes, s.LayoutBytes.size());
}

// Returns the name of the measurement.
std::string AddWork(bench::Suite& suite, const std::shared_ptr<Stored>& stored, const std::string& what,
                    Work work)
{
    const std::string name = what + ", " + std::to_string(stored->Rows) + " rows";
    suite.Add(name, stored->Rows, [stored, work](benchmark::State& state) {
        test::SetUnits(EntriesOfRows(stored->Rows));
        for ([[maybe_unused]] const auto iteration : state)
            work(*stored);
    });
    return name;
}

void AddInMemory(bench::Suite& suite, const bench::TempFolder& folder)
{
    std::string load;
    std::string save;
    for (const WORD rows : tableSizes) {
        const auto stored = MakeStored(folder, rows, Peers::JsonAndLoop);
        load = AddWork(suite, stored, "Load", Load);
        save = AddWork(suite, stored, "Save", Save);
        const auto compare = [&](const std::string& name, const char* peer, Work work, double goal) {
            suite.Compare(
                {.Name = name, .Ours = name, .Peer = AddWork(suite, stored, peer, work), .Goal = goal});
        };
        compare(load, "JSON load", JsonLoad, goalAgainstJson);
        compare(load, "loop load", LoopLoad, goalAgainstLoop);
        compare(save, "JSON save", JsonSave, goalAgainstJson);
        compare(save, "loop save", LoopSave, goalAgainstLoop);
    }
    const auto large = MakeStored(folder, largeTable, Peers::Loop);
    const std::string largeLoad = AddWork(suite, large, "Load", Load);
    const std::string largeSave = AddWork(suite, large, "Save", Save);
    suite.Compare({.Name = largeLoad, .Ours = largeLoad, .Peer = load, .Goal = growthGoal});
    suite.Compare({.Name = largeSave, .Ours = largeSave, .Peer = save, .Goal = growthGoal});
}

void AddOnDisk(bench::Suite& suite, const bench::TempFolder& folder)
{
    for (const WORD rows : tableSizesOnDisk) {
        const auto stored = MakeStored(folder, rows, Peers::Loop);
        const std::string name = AddWork(suite, stored, "Save", Save);
        suite.Compare({.Name = name,
                       .Ours = name,
                       .Peer = AddWork(suite, stored, "one write, two fsyncs", LoopSave),
                       .Goal = goalOnDisk,
                       .WaitsForDisk = true});
    }
}

int Run(int argc, char** argv)
{
    const std::vector<std::string> options = {"--benchmark_repetitions=25", "--benchmark_min_time=0.02"};
    bench::Suite catalogue(argc, argv, options);
    AddCatalogues(catalogue);
    RecordRowSize(catalogue);
    catalogue.Run();
    catalogue.PrintTable("Catalogue", bench::threadTime + "a row");

    const bench::TempFolder inMemory;
    bench::Suite files(argc, argv, options);
    AddInMemory(files, inMemory);
    files.Run();
    files.PrintTable(std::string("Layout file ") + inMemory.Place(), bench::threadTime + "a row");

    const bench::TempFolder onDisk(bench::Storage::Disk);
    // One save at a time, as another program's turn on the processor takes longer than a save.
    bench::Suite saves(argc, argv, {"--benchmark_repetitions=100", "--benchmark_min_time=0.000001"});
    AddOnDisk(saves, onDisk);
    saves.Run();
    saves.PrintTable(std::string("Layout file ") + onDisk.Place(), "elapsed ns a row");
    return EXIT_SUCCESS;
}

} // namespace

int main(int argc, char** argv)
{
    return bench::RunProgram(argc, argv, Run);
}
