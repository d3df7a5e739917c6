#include "LayoutWords.h"

#include "Quantities.h"

#include <bindings/terminal/Text.h>

#include <cstdint>
#include <vector>

namespace atlaslayout
{
namespace
{

using styleatlas::Color;
using styleatlas::Style;
using namespace styleatlas::terminal;

void AddUnusedByte(std::string& words, const char* name, Color color)
{
    if (const std::uint32_t byte = color.value >> 24; byte != 0)
        words += std::string{"; "} + name + " with " + Hexadecimal(byte);
}

struct FieldText {
    const char* name;
    std::string value;
};

std::vector<FieldText> FieldsOf(const LayoutRecord& record)
{
    const Style& style = record.style;
    return {{"shape", std::to_string(static_cast<int>(style.symbolShape))},
            {"fill", std::to_string(static_cast<int>(style.symbolFill))},
            {"size", std::to_string(style.symbolSize)},
            {"symbol colour", Hexadecimal(style.symbolColor.value)},
            {"line", std::to_string(static_cast<int>(style.lineStyle))},
            {"width", std::to_string(style.lineWidth)},
            {"line colour", Hexadecimal(style.lineColor.value)},
            {"use of the symbol's colour", std::to_string(style.useSymbolColor)},
            {"reserved", Hexadecimal(record.reserved)}};
}

} // namespace

std::string HeadWords(const LayoutHead& head)
{
    return "version " + std::to_string(head.version) + ", " + Counted(head.columnCount, "file column");
}

std::string KeyWords(const QuantityKey& key, Translator text)
{
    const std::string symbol = SymbolOf(key);
    std::string words = symbol.empty() ? "" : symbol + ": ";
    words += key.Device == NoDevice ? text("no device", {}) : text("device %1", {std::to_string(key.Device)});
    words += ", " + text("quantity %1", {std::to_string(key.Quantity)}) + ", ";
    words += key.SubQuantity == k_GroupSubQuantity
                 ? text("the whole group", {})
                 : text("sub-quantity %1", {std::to_string(key.SubQuantity)});
    return words + ", " + text("index %1, flags %2", {std::to_string(key.Index), Hexadecimal(key.Flags)});
}

std::string RowWords(const LayoutRow& row)
{
    return "level " + std::to_string(row.level) + (row.reservedFlag ? ", reserved flag" : "") + ", " +
           Counted(row.recordCount, "record");
}

std::string RecordWords(const LayoutRecord& record)
{
    std::string words = InWords(record.style);
    if (record.reserved != 0)
        words += "; reserved " + Hexadecimal(record.reserved);
    AddUnusedByte(words, "symbol colour", record.style.symbolColor);
    AddUnusedByte(words, "line colour", record.style.lineColor);
    return words;
}

std::string FieldWords(const LayoutRecord& record, const LayoutRecord& other)
{
    const std::vector<FieldText> fields = FieldsOf(record);
    const std::vector<FieldText> others = FieldsOf(other);
    std::string words;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (fields[i].value != others[i].value)
            words += (words.empty() ? "" : ", ") + std::string{fields[i].name} + " " + fields[i].value;
    }
    return words;
}

std::string ColumnWords(std::size_t first, std::size_t last, Translator text)
{
    return first == last ? text("file column %1", {std::to_string(first)})
                         : text("file columns %1 to %2", {std::to_string(first), std::to_string(last)});
}

} // namespace atlaslayout
