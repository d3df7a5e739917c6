// GetStyleAtlas, called through the library as by a host, against the bare loop. It also counts its
// allocations, which must be 0.
#include "AllocationCount.h"
#include "PeerTable.h"
#include "Suite.h"
#include "TempFolder.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <include/styleatlas.h>
#include <stdexcept>

namespace
{

constexpr double goal = 1.3;
constexpr std::size_t tableSizes[] = {30, 300, 3000};
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
bench::PlainTable CopyLibraryTable(std::size_t rows)
{
    bench::PlainTable table = bench::MakePlainTable(rows);
    for (std::size_t row = 0; row < rows; ++row) {
        table[row]->Device = device;
        table[row]->Quantity = QuantityOfRow(row);
        table[row]->SubQuantity = subQuantity;
        table[row]->Index = index;
        table[row]->Flags = flags;
        for (std::int16_t i = 0; i < bench::plainColumns; ++i) {
            Answer answer;
            Ask<GetStyleAtlas>(QuantityOfRow(row), i, answer);
            answer.Style.UseSymbolColor = answer.UseSymbolColor != 0;
            *table[row]->Styles[static_cast<std::size_t>(i)] = answer.Style;
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

// Compares at one table size; returns the number of allocations in the lookups.
std::size_t RunSize(bench::Suite& suite, std::size_t rows)
{
    const bench::PlainTable peerTable = CopyLibraryTable(rows);
    bench::SetBareTable(peerTable);
    struct Case {
        const char* Name;
        std::uint16_t Quantity;
        bool IsInTable;
    };
    const Case cases[] = {{"first row", QuantityOfRow(0), true},
                          {"last row", QuantityOfRow(rows - 1), true},
                          {"no such quantity", noQuantity, false}};
    std::size_t allocations = 0;
    for (const Case& each : cases) {
        RequireEqualAnswers(each.Quantity, each.IsInTable);
        allocations += CountAllocations(each.Quantity);
        const std::string name = std::to_string(rows) + " rows, " + each.Name;
        const std::string peer = "bare loop, " + name;
        const std::uint16_t quantity = each.Quantity;
        suite.Add(name, 1, [quantity](benchmark::State& state) { Measure<GetStyleAtlas>(state, quantity); });
        suite.Add(peer, 1,
                  [quantity](benchmark::State& state) { Measure<bench::BareLookup>(state, quantity); });
        suite.Compare({.Name = name, .Ours = name, .Peer = peer, .Goal = goal});
    }
    suite.Run();
    return allocations;
}

int Run(int argc, char** argv)
{
    bench::Suite suite(argc, argv, {"--benchmark_repetitions=25", "--benchmark_min_time=0.02"});
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
    suite.PrintTable(title, bench::threadTime + "a call");
    std::printf("allocations in %zu calls: %zu\n", std::size(tableSizes) * 3 * countedCalls, allocations);
    return allocations == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace

int main(int argc, char** argv)
{
    return bench::RunProgram(argc, argv, Run);
}
