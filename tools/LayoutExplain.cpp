// The command explain.
#include "Commands.h"
#include "HostTable.h"
#include "LayoutWords.h"
#include "Quantities.h"
#include "Texts.h"

#include <bindings/terminal/StyleWords.h>
#include <bindings/terminal/Text.h>
#include <model/RowFit.h>

#include <iostream>

namespace atlaslayout
{
namespace
{

using namespace styleatlas::terminal;

// What a row has in common with the key at each stage of the search.
std::string StageWords(int stage)
{
    switch (stage) {
    case fitsQuantity:
        return Text("the quantity");
    case fitsSubQuantity:
        return Text("the sub-quantity too");
    case fitsDevice:
        return Text("the device too");
    default:
        return Text("index and flags too");
    }
}

QuantityKey KeyOfRow(const k_StyleAtlas& atlas, INT_PTR row)
{
    QuantityKey key;
    atlas.GetRow(row)->GetKey(key);
    return key;
}

void PrintStages(const HostTable& table, const QuantityKey& key, INT_PTR answer)
{
    const k_StyleAtlas& atlas = table.Atlas();
    const k_RowFit fit = FitOfRow(KeyOfRow(atlas, answer), key);
    std::size_t asGood = 0;
    for (INT_PTR i = answer + 1; i < atlas.Rows.GetSize(); ++i)
        asGood += FitOfRow(KeyOfRow(atlas, i), key) == fit ? 1 : 0;
    for (int stage = fitsQuantity; stage <= fitsAll; ++stage) {
        const std::initializer_list<std::string> words{std::to_string(stage), StageWords(stage)};
        std::cout << "  "
                  << (stage <= fit ? Text("stage %1, %2: it agrees", words)
                                   : Text("stage %1, %2: no row agrees", words))
                  << '\n';
    }
    if (asGood > 0)
        std::cout << "  "
                  << Text("rows further down that fit as well: %1; the first one answers",
                          {std::to_string(asGood)})
                  << '\n';
    if (fit < fitsAll)
        std::cout << "  " << Text("a row of its own would fit best: %1", {KeyWords(key, Text)}) << '\n';
}

// False if a host gets no style.
bool Explain(const HostTable& table, const QuantityKey& key, int column)
{
    const k_StyleAtlas& atlas = table.Atlas();
    const INT_PTR row = atlas.FindRow(key);
    std::cout << KeyWords(key, Text) << "; "
              << ColumnWords(static_cast<std::size_t>(column), static_cast<std::size_t>(column), Text)
              << '\n';
    if (row < 0) {
        std::cout << Text("No row has quantity %1: there is no style.", {std::to_string(key.Quantity)})
                  << '\n';
        return false;
    }
    const QuantityKey found = KeyOfRow(atlas, row);
    std::cout << Text("Row %1 answers, at stage %2 of 4: %3",
                      {std::to_string(row), std::to_string(FitOfRow(found, key)), KeyWords(found, Text)})
              << '\n';
    PrintStages(table, key, row);
    if (table.IsNotInFile(found))
        std::cout << "  " << Text("the layout file does not have this row") << '\n';
    const k_LineDef* const style = atlas.GetRowStyle(row, column);
    if (style == nullptr) {
        std::cout << Text("The row has no record for this file column: there is no style.") << '\n';
        return false;
    }
    std::cout << Text("Style: %1", {StyleCell(LayoutRecord{*style}.style, ColorsOfOutput(), StyleText)})
              << '\n';
    return true;
}

} // namespace

int ExplainStyle(Words words, const Options& options)
{
    const std::vector<QuantityKey> keys = ParseKeys(words.back());
    const int column = options.NumberOf(Option::Column, 0, SHRT_MAX);
    const HostTable table{words.size() > 1 ? words[0] : nullptr, options.Find(Option::Host)};
    std::cout << Text("Table: %1", {table.Origin()}) << '\n';
    bool isAnswered = true;
    for (const QuantityKey& key : keys) {
        std::cout << '\n';
        isAnswered = Explain(table, key, column) && isAnswered;
    }
    return table.IsDamaged() ? NoAnswer : isAnswered ? Succeeded : Negative;
}

} // namespace atlaslayout
