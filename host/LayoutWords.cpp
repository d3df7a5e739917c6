#include "LayoutWords.h"

#include "Text.h"

#include "mensura.h"

#include <cstdint>
#include <vector>

namespace atlashost
{
namespace
{

constexpr int NoDevice = -1;

// Empty where the unit library does not know the quantity, which it tells by a "#" and the number.
std::string SymbolOf(const RowIdentity& identity)
{
    static_assert(RowIdentity::WholeGroup == MENSURA_WHOLE_QUANTITY);
    const std::string symbol = ToUtf8(
        MensuraGetSymbolW(identity.quantity, identity.subQuantity, identity.flags,
                          static_cast<std::uint16_t>(identity.device), identity.index, MENSURA_SYMBOL));
    const bool isKnown = symbol != std::string{"#"}.append(std::to_string(identity.quantity));
    return isKnown ? Printable(symbol) : std::string{};
}

// The highest byte of a colour has no meaning.
void AddHighByte(std::string& words, const char* name, std::uint32_t color)
{
    if (const std::uint32_t byte = color >> 24; byte != 0)
        words += std::string{"; "} + name + " with " + Hexadecimal(byte);
}

struct Field {
    const char* name;
    std::string value;
};

std::vector<Field> FieldsOf(const LayoutRecord& record)
{
    const CurveStyle& style = record.style;
    return {{"shape", std::to_string(style.symbolShape)},
            {"fill", std::to_string(style.symbolFill)},
            {"size", std::to_string(style.symbolSize)},
            {"symbol colour", Hexadecimal(style.symbolColor)},
            {"line", std::to_string(style.lineStyle)},
            {"width", std::to_string(style.lineWidth)},
            {"line colour", Hexadecimal(style.lineColor)},
            {"use of the symbol's colour", std::to_string(style.useSymbolColor)},
            {"reserved", Hexadecimal(record.reserved)}};
}

} // namespace

std::string DamageWords(const LayoutDamage& damage)
{
    return "damaged at byte " + std::to_string(damage.byte) + ": " + damage.reason;
}

std::string HeadWords(const LayoutFile& file)
{
    return "version " + std::to_string(file.Version()) + ", " + Counted(file.ColumnCount(), "file column");
}

std::string IdentityWords(const RowIdentity& identity)
{
    const std::string symbol = SymbolOf(identity);
    std::string words = symbol.empty() ? "" : symbol + ": ";
    words += identity.device == NoDevice ? "no device" : "device " + std::to_string(identity.device);
    words += ", quantity " + std::to_string(identity.quantity) + ", ";
    words += identity.subQuantity == RowIdentity::WholeGroup
                 ? "the whole group"
                 : "sub-quantity " + std::to_string(identity.subQuantity);
    return words + ", index " + std::to_string(identity.index) + ", flags " + Hexadecimal(identity.flags);
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
    AddHighByte(words, "symbol colour", record.style.symbolColor);
    AddHighByte(words, "line colour", record.style.lineColor);
    return words;
}

std::string FieldWords(const LayoutRecord& record, const LayoutRecord& other)
{
    const std::vector<Field> fields = FieldsOf(record);
    const std::vector<Field> others = FieldsOf(other);
    std::string words;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (fields[i].value != others[i].value)
            words += (words.empty() ? "" : ", ") + std::string{fields[i].name} + " " + fields[i].value;
    }
    return words;
}

std::string ColumnWords(std::size_t first, std::size_t last)
{
    return first == last ? "file column " + std::to_string(first)
                         : "file columns " + std::to_string(first) + " to " + std::to_string(last);
}

} // namespace atlashost
