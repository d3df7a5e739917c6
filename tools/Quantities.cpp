#include "Quantities.h"

#include "Texts.h"
#include "UnitBinding.h"

#include <bindings/terminal/CommandLine.h>
#include <bindings/terminal/Text.h>
#include <mensura.h>

#include <charconv>
#include <cstdint>

namespace atlaslayout
{
namespace
{

using namespace styleatlas::terminal;

std::optional<QuantityKey> ParseKey(std::string_view text)
{
    constexpr long long max16 = 0xFFFF;
    struct Part {
        long long value; // where the text ends before it
        long long min;
        long long max;
    };
    Part parts[] = {
        {0, 0, max16}, {0, 0, 0xFF}, {0, 0, 0xFF}, {NoDevice, NoDevice, max16}, {0, 0, 0xFFFFFFFF}};
    bool isMore = true;
    for (Part& part : parts) {
        if (!isMore)
            break;
        const std::size_t comma = text.find(',');
        const auto number = ParseNumber(text.substr(0, comma), part.min, part.max);
        if (!number)
            return std::nullopt;
        part.value = *number;
        isMore = comma != std::string_view::npos;
        text.remove_prefix(isMore ? comma + 1 : text.size());
    }
    if (isMore)
        return std::nullopt;
    return QuantityKey{static_cast<WORD>(parts[0].value), static_cast<WORD>(parts[1].value),
                       static_cast<BYTE>(parts[2].value), static_cast<short>(parts[3].value),
                       static_cast<DWORD>(parts[4].value)};
}

} // namespace

std::optional<long long> ParseNumber(std::string_view text, long long min, long long max)
{
    const bool isHexadecimal = text.starts_with("0x");
    if (isHexadecimal)
        text.remove_prefix(2);
    long long value = 0;
    const auto [end, error] =
        std::from_chars(text.data(), text.data() + text.size(), value, isHexadecimal ? 16 : 10);
    const bool isWhole = error == std::errc{} && end == text.data() + text.size();
    const bool isFit = isWhole && value >= min && value <= max && !(isHexadecimal && text.starts_with('-'));
    return isFit ? std::optional{value} : std::nullopt;
}

std::optional<NumberRange> ParseRange(std::string_view text, int max)
{
    const std::size_t dash = text.find('-');
    const auto first = ParseNumber(text.substr(0, dash), 0, max);
    const auto last = dash == std::string_view::npos ? first : ParseNumber(text.substr(dash + 1), 0, max);
    if (!first || !last || *first > *last)
        return std::nullopt;
    return NumberRange{static_cast<int>(*first), static_cast<int>(*last)};
}

std::string SymbolOf(const QuantityKey& key)
{
    static_assert(k_GroupSubQuantity == MENSURA_WHOLE_QUANTITY);
    const std::string symbol =
        ToUtf8(MensuraGetSymbolW(key.Quantity, key.SubQuantity, key.Flags,
                                 static_cast<std::uint16_t>(key.Device), key.Index, MENSURA_SYMBOL));
    // The unit library's answer for a quantity that it doesn't know is "#" and the number.
    const bool isKnown = symbol != std::string{"#"}.append(std::to_string(key.Quantity));
    return isKnown ? Printable(symbol) : std::string{};
}

NamedQuantities QuantitiesOf(std::string_view symbol)
{
    NamedQuantities named;
    const k_UnitQuantities list = ListUnits();
    for (int i = 0; i < list.Count; ++i) {
        const QuantityKey key{list.Quantities[i], static_cast<BYTE>(list.SubQuantities[i]),
                              static_cast<BYTE>(list.Indexes[i]), static_cast<short>(list.Devices[i]),
                              list.Flags[i]};
        if (SymbolOf(key) == symbol)
            named.own.push_back(key);
        if (SymbolOf({key.Quantity, k_GroupSubQuantity, 0, key.Device, 0}) == symbol)
            named.inGroups.push_back(key);
    }
    return named;
}

std::vector<QuantityKey> ParseKeys(const char* text)
{
    if (const auto key = ParseKey(text))
        return {*key};
    std::vector<QuantityKey> keys = QuantitiesOf(text).own;
    if (keys.empty())
        throw UsageError{
            Text("\"%1\" is neither the symbol of a quantity nor QUANTITY,SUB-QUANTITY,INDEX,DEVICE,FLAGS",
                 {Printable(text)})};
    return keys;
}

std::string KeyText(const QuantityKey& key)
{
    return std::to_string(key.Quantity) + "," + std::to_string(key.SubQuantity) + "," +
           std::to_string(key.Index) + "," + std::to_string(key.Device) + "," + Hexadecimal(key.Flags);
}

} // namespace atlaslayout
