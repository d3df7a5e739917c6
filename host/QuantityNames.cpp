#include "QuantityNames.h"

#include "mensura.h"

#include <bindings/terminal/Text.h>

#include <algorithm>
#include <iterator>
#include <utility>

namespace atlashost
{
namespace
{

using styleatlas::terminal::ToUtf8;

// Letters and digits of any language.
constexpr bool IsOfWord(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
           static_cast<unsigned char>(c) >= 0x80;
}

std::string Folded(std::string_view text)
{
    std::string folded;
    std::ranges::transform(text, std::back_inserter(folded), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
    });
    return folded;
}

std::string_view FirstWord(std::string_view name)
{
    std::size_t length = 0;
    while (length < name.size() && IsOfWord(name[length]))
        ++length;
    return name.substr(0, length);
}

} // namespace

QuantityNames::QuantityNames()
{
    std::uint16_t* devices = nullptr;
    std::uint16_t* quantities = nullptr;
    int* subQuantities = nullptr;
    std::uint16_t* indexes = nullptr;
    std::uint32_t* flags = nullptr;
    int count = 0;
    MensuraGetQuantitiesW(&devices, &quantities, &subQuantities, &indexes, &flags, &count);
    for (int i = 0; i < count; ++i) {
        const styleatlas::Key key{quantities[i], static_cast<std::uint8_t>(subQuantities[i]),
                                  static_cast<std::uint8_t>(indexes[i]), devices[i], flags[i]};
        MeasuredQuantity entry{
            key,
            ToUtf8(MensuraGetSymbolW(key.quantity, key.subQuantity, key.flags, key.device, key.index,
                                     MENSURA_SYMBOL)),
            ToUtf8(MensuraGetNameW(key.quantity, key.subQuantity, key.flags, key.device, key.index))};
        const std::size_t position = m_quantities.size();
        m_bySymbol.try_emplace(entry.symbol, position);
        m_byFoldedSymbol.try_emplace(Folded(entry.symbol), position);
        m_byFirstWord.try_emplace(Folded(FirstWord(entry.name)), position);
        m_quantities.push_back(std::move(entry));
    }
}

const MeasuredQuantity* QuantityNames::Find(std::string_view header) const
{
    const std::string exact{header};
    const std::string folded = Folded(header);
    if (exact.empty())
        return nullptr;
    const std::pair<const Positions&, const std::string&> fromBestToWorst[] = {
        {m_bySymbol, exact}, {m_byFoldedSymbol, folded}, {m_byFirstWord, folded}};
    for (const auto& [positions, text] : fromBestToWorst) {
        if (const auto found = positions.find(text); found != positions.end())
            return &m_quantities[found->second];
    }
    return nullptr;
}

} // namespace atlashost
