// The command distinct.
#include "Commands.h"
#include "HostTable.h"
#include "LayoutWords.h"
#include "Quantities.h"
#include "Runs.h"
#include "Texts.h"

#include <bindings/distinct/LikenessWords.h>
#include <bindings/terminal/CommandLine.h>
#include <bindings/terminal/StyleWords.h>
#include <bindings/terminal/Text.h>
#include <model/Palette.h>

#include <algorithm>
#include <iostream>
#include <map>
#include <set>

namespace atlaslayout
{
namespace
{

using namespace styleatlas::distinct;
using namespace styleatlas::terminal;
using styleatlas::Color;
using styleatlas::Style;

NumberRange ColumnsOf(const Options& options)
{
    const char* const text = options.Find(Option::Columns);
    if (text == nullptr)
        return {0, k_MaxFileColumns - 1};
    if (const auto range = ParseRange(text, k_MaxFileColumns - 1))
        return *range;
    throw UsageError{
        Text("--columns takes file columns from 0 to 31 as \"0-3\", not \"%1\"", {Printable(text)})};
}

// The numbers of quantities, from a list of numbers, ranges and symbols. All of them for a null.
std::set<int> QuantitiesIn(const char* list)
{
    std::set<int> wanted;
    std::string_view rest = list != nullptr ? list : "0-65535";
    while (true) {
        const std::size_t comma = rest.find(',');
        const std::string_view word = rest.substr(0, comma);
        bool isKnown = false;
        if (const auto range = ParseRange(word, 0xFFFF)) {
            isKnown = true;
            for (int i = range->first; i <= range->last; ++i)
                wanted.insert(i);
        } else {
            const NamedQuantities named = QuantitiesOf(word);
            for (const auto& keys : {named.own, named.inGroups}) {
                isKnown = isKnown || !keys.empty();
                for (const QuantityKey& key : keys)
                    wanted.insert(key.Quantity);
            }
        }
        if (!isKnown)
            throw UsageError{
                Text("\"%1\" is neither the number nor the symbol of a quantity", {Printable(word)})};
        if (comma == std::string_view::npos)
            return wanted;
        rest.remove_prefix(comma + 1);
    }
}

// A colour as "#A52A00", or the English name of one of the palette.
Color GroundOf(const Options& options)
{
    const std::string text = options.Has(Option::Against) ? options.Find(Option::Against) : "White";
    if (text.size() == 7 && text.front() == '#') {
        if (const auto rgb = ParseNumber("0x" + text.substr(1), 0, 0xFFFFFF))
            return {RGB(*rgb >> 16 & 0xFF, *rgb >> 8 & 0xFF, *rgb & 0xFF)};
    }
    const CString wanted{ToUtf16(text).c_str()};
    for (const k_NamedColor& named : k_Palette) {
        if (wanted.CompareNoCase(named.Name) == 0)
            return {named.Color};
    }
    throw UsageError{Text("\"%1\" is neither a colour as #FFFFFF nor the name of one", {Printable(text)})};
}

// The curves that look alike.
struct Group {
    Style style; // of the first curve
    std::vector<std::string> curves;
    std::size_t count = 0;

    std::string Words() const
    {
        return curves.front() +
               (curves.size() > 1 ? " " + Text("and %1 more", {std::to_string(curves.size() - 1)}) : "");
    }
};

class Inspection
{
public:
    Inspection(const k_StyleAtlas& atlas, NumberRange columns, const std::set<int>& quantities)
    {
        for (INT_PTR i = 0; i < atlas.Rows.GetSize(); ++i) {
            const LayoutRow row{*atlas.GetRow(i)};
            // A group has no curve of its own.
            if (row.key.SubQuantity != k_GroupSubQuantity && quantities.contains(row.key.Quantity))
                Add(row, columns);
        }
    }

    bool PrintAlike() const
    {
        bool isAny = false;
        for (const auto& [look, group] : m_groups) {
            if (group.count == 1)
                continue;
            isAny = true;
            std::cout << Text("the same symbol, line and colours: %1", {WordsOf(group.style)}) << '\n';
            for (const std::string& curve : group.curves)
                std::cout << "  " << curve << '\n';
        }
        return isAny;
    }

    bool PrintClose() const
    {
        bool isAny = false;
        for (auto one = m_groups.begin(); one != m_groups.end(); ++one) {
            const Drawn drawn{one->second.style};
            // Groups of one figure stand together.
            for (auto other = std::next(one); other != m_groups.end(); ++other) {
                const Drawn otherDrawn{other->second.style};
                if (!drawn.HasFigureOf(otherDrawn))
                    break;
                isAny = PrintPair(one->second, other->second, TooClose(drawn, otherDrawn)) || isAny;
            }
        }
        return isAny;
    }

    bool PrintInvisible() const
    {
        bool isAny = false;
        for (const auto& [look, group] : m_groups) {
            if (Drawn{group.style}.IsVisible())
                continue;
            isAny = true;
            std::cout << Text("nothing is drawn:") << '\n';
            PrintGroup(group);
        }
        return isAny;
    }

    bool PrintFaint(Color ground) const
    {
        bool isAny = false;
        for (const auto& [look, group] : m_groups) {
            for (const Faintness& faint : TooFaint(Drawn{group.style}, ground)) {
                isAny = true;
                std::cout << Text("too little contrast to the ground, %1:", {OneDecimal(faint.contrast)})
                          << '\n';
                PrintGroup(group);
            }
        }
        return isAny;
    }

private:
    void Add(const LayoutRow& row, NumberRange columns)
    {
        const auto first = static_cast<std::size_t>(columns.first);
        const std::size_t end = std::min(static_cast<std::size_t>(columns.last) + 1, row.recordCount);
        const std::string symbol = SymbolOf(row.key);
        ForEachRun(
            end > first ? end - first : 0,
            [&](std::size_t i) { return Drawn{row.RecordOf(first + i)->style}.Look(); },
            [&](std::size_t from, std::size_t to, const auto& look) {
                Group& group =
                    m_groups.try_emplace(look, Group{row.RecordOf(first + from)->style, {}}).first->second;
                group.curves.push_back((symbol.empty() ? "" : symbol + " ") + KeyText(row.key) + ", " +
                                       ColumnWords(first + from, first + to, Text));
                group.count += to + 1 - from;
            });
    }

    static std::string WordsOf(const Style& style) { return StyleCell(style, ColorsOfOutput(), StyleText); }

    static void PrintGroup(const Group& group)
    {
        std::cout << "  " << group.Words() << ": " << WordsOf(group.style) << '\n';
    }

    static bool PrintPair(const Group& one, const Group& other, const std::vector<Closeness>& close)
    {
        if (close.empty())
            return false;
        std::cout << Text("too close in colour: %1", {InWords(close, Text)}) << '\n';
        PrintGroup(one);
        PrintGroup(other);
        return true;
    }

    std::map<decltype(Drawn{Style{}}.Look()), Group> m_groups;
};

} // namespace

int FindAlike(Words paths, const Options& options)
{
    const NumberRange columns = ColumnsOf(options);
    const Color ground = GroundOf(options);
    const HostTable table{paths.empty() ? nullptr : paths[0], options.Find(Option::Host)};
    const Inspection inspection{table.Atlas(), columns, QuantitiesIn(options.Find(Option::Quantities))};
    std::cout << Text("Table: %1", {table.Origin()}) << '\n';
    const bool isAlike = inspection.PrintAlike();
    const bool isClose = inspection.PrintClose();
    const bool isInvisible = inspection.PrintInvisible();
    const bool isFaint = inspection.PrintFaint(ground);
    if (table.IsDamaged())
        return NoAnswer;
    if (isAlike || isClose || isInvisible || isFaint)
        return Negative;
    std::cout << Text("every curve can be seen and distinguished from the others") << '\n';
    return Succeeded;
}

} // namespace atlaslayout
