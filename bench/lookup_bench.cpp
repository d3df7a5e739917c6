// GetStyleAtlas, called through the library as by a host, against the bare loop over rows in the same layout
// and over rows that lie apart. It also counts its allocations, which must be 0.
#include "AllocationCount.h"
#include "PeerTable.h"
#include "Suite.h"
#include "TempFolder.h"

#include <cstdlib>
#include <fstream>
#include <include/styleatlas.h>
#include <stdexcept>

namespace
{

constexpr double firstRowGoal = 1.15;
constexpr double otherRowGoal = 1.3;
constexpr double rowsApartGoal = 0.8; // for tables that are larger than the processor's first cache
constexpr std::size_t largeTable = 3000;
constexpr std::size_t tableSizes[] = {30, 300, largeTable, 30000};
constexpr int countedCalls = 1000;
constexpr std::uint16_t noQuantity = 65535;
constexpr const char* title = "GetStyleAtlas";

// All rows have these values, and each a quantity of its own, so all stages of the search stop at the same
// row.
constexpr std::uint16_t device = 2;
constexpr std::uint8_t subQuantity = 1;
constexpr std::uint8_t index = 3;
constexpr std::uint32_t flags = 0x2;
constexpr std::int16_t column = 7;

struct Answer {
    int Found = 0;
    bench::PlainStyle Style;
    std::uint8_t UseSymbolColor = 0;

    friend bool operator==(const Answer&, const Answer&) = default;
};

// A direct call, as by a host: the library's function is reached through the linkage table.
template <auto Lookup> void Ask(std::uint16_t quantity, std::int16_t fileColumn, Answer& answer)
{
    bench::PlainStyle& style = answer.Style;
    answer.Found = Lookup(fileColumn, quantity, subQuantity, index, device, flags, &style.SymbolColor,
                          &style.SymbolShape, &style.SymbolSize, &style.SymbolFill, &style.LineColor,
                          &style.LineStyle, &style.LineWidth, &answer.UseSymbolColor);
}

template <auto Lookup> void Measure(benchmark::State& state, std::uint16_t quantity)
{
    Answer answer;
    benchmark::DoNotOptimize(&answer);
    for ([[maybe_unused]] const auto iteration : state) {
        Ask<Lookup>(quantity, column, answer);
        benchmark::ClobberMemory();
    }
}

constexpr std::uint16_t QuantityOfRow(std::size_t row)
{
    return static_cast<std::uint16_t>(row + 1);
}

void LoadLibraryTable(const bench::TempFolder& folder, std::size_t rows)
{
    const std::filesystem::path path = folder.Path() / (std::to_string(rows) + ".catalogue");
    {
        std::ofstream file(path);
        for (std::size_t row = 0; row < rows; ++row)
            file << device << ';' << QuantityOfRow(row) << ';' << int{subQuantity} << ';' << int{index} << ';'
                 << flags << ";q;\n";
    }
    setenv("MENSURA_CATALOGUE", path.c_str(), 1);
    StyleAtlasSetApplication(u"Bench");
}

// The peer's table, with the styles that the library returns.
bench::BareTable CopyLibraryTable(std::size_t rows, bench::Layout layout)
{
    bench::BareTable table(rows, layout);
    std::uint16_t quantity = QuantityOfRow(0);
    for (bench::PlainRow* const row : table.Rows()) {
        row->Device = device;
        row->Quantity = quantity++;
        row->SubQuantity = subQuantity;
        row->Index = index;
        row->Flags = flags;
        for (std::int16_t i = 0; i < bench::plainColumns; ++i) {
            Answer answer;
            Ask<GetStyleAtlas>(row->Quantity, i, answer);
            answer.Style.UseSymbolColor = answer.UseSymbolColor != 0;
            *row->Styles[static_cast<std::size_t>(i)] = answer.Style;
        }
    }
    return table;
}

void RequireEqualAnswers(std::uint16_t quantity, bool isInTable)
{
    Answer ours;
    Answer peer;
    Ask<GetStyleAtlas>(quantity, column, ours);
    Ask<bench::BareLookup>(quantity, column, peer);
    if (ours.Found != (isInTable ? 1 : 0) || ours != peer)
        throw std::runtime_error("the library and the bare loop answer differently");
}

std::size_t CountAllocations(std::uint16_t quantity)
{
    const std::size_t before = bench::AllocationCount();
    for (int i = 0; i < countedCalls; ++i) {
        Answer answer;
        Ask<GetStyleAtlas>(quantity, column, answer);
    }
    return bench::AllocationCount() - before;
}

struct Case {
    const char* Name;
    std::uint16_t Quantity;
    bool IsInTable;
    double Goal;
};

// Adds one query of the peer, in a table of its layout.
std::string AddPeer(bench::Suite& suite, const bench::BareTable& table, const char* layout,
                    const std::string& name, const Case& each)
{
    bench::SetBareTable(table);
    RequireEqualAnswers(each.Quantity, each.IsInTable);
    const std::string peer = std::string("bare loop, ") + layout + ", " + name;
    suite.Add(peer, 1, [&table, quantity = each.Quantity](benchmark::State& state) {
        bench::SetBareTable(table);
        Measure<bench::BareLookup>(state, quantity);
    });
    return peer;
}

// Compares at one table size; returns the number of allocations in the lookups.
std::size_t RunSize(bench::Suite& suite, std::size_t rows)
{
    const bench::BareTable close = CopyLibraryTable(rows, bench::Layout::Close);
    const bench::BareTable apart = CopyLibraryTable(rows, bench::Layout::Apart);
    const Case cases[] = {{"first row", QuantityOfRow(0), true, firstRowGoal},
                          {"last row", QuantityOfRow(rows - 1), true, otherRowGoal},
                          {"no such quantity", noQuantity, false, otherRowGoal}};
    std::size_t allocations = 0;
    for (const Case& each : cases) {
        allocations += CountAllocations(each.Quantity);
        const std::string name = std::to_string(rows) + " rows, " + each.Name;
        suite.Add(name, 1, [quantity = each.Quantity](benchmark::State& state) {
            Measure<GetStyleAtlas>(state, quantity);
        });
        suite.Compare({.Name = name,
                       .Ours = name,
                       .Peer = AddPeer(suite, close, "rows close", name, each),
                       .Goal = each.Goal});
        if (rows >= largeTable && &each != cases)
            suite.Compare({.Name = name,
                           .Ours = name,
                           .Peer = AddPeer(suite, apart, "rows apart", name, each),
                           .Goal = rowsApartGoal});
    }
    suite.Run();
    return allocations;
}

int Run(int argc, char** argv)
{
    bench::Suite suite(argc, argv, {"--benchmark_repetitions=50", "--benchmark_min_time=0.005"});
    const bench::TempFolder folder;
    setenv("STYLEATLAS_PREFIX", folder.Path().c_str(), 1);
    std::size_t allocations = 0;
    for (const std::size_t rows : tableSizes) {
        const std::size_t before = bench::AllocationCount();
        LoadLibraryTable(folder, rows);
        if (bench::AllocationCount() - before < rows) // one for each row, at least
            throw std::runtime_error("the allocations of the library are not seen");
        allocations += RunSize(suite, rows);
    }
    const std::string counted = "allocations in 1000 calls of each";
    suite.Record(counted, static_cast<double>(allocations));
    suite.Compare({.Name = counted, .Ours = counted, .Peer = {}});
    suite.PrintTable(title, bench::threadTime + "a call");
    return allocations == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace

int main(int argc, char** argv)
{
    return bench::RunProgram(argc, argv, Run);
}
