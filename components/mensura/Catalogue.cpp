#include "Catalogue.h"

#include "mensura.h"

#include <utility>

namespace mensura
{

bool Catalogue::Add(CatalogueLine line)
{
    const std::size_t position = m_texts.size();
    if (position == MaxLines)
        return false;
    if (line.subQuantity)
        AddEntry(line, position);
    else
        m_positions.try_emplace(
            {line.quantity, MENSURA_WHOLE_QUANTITY, line.device ? *line.device : Any, Any, AnyFlags},
            position);
    std::u16string both = line.name.empty() ? line.symbol : line.symbol + u" (" + line.name + u")";
    m_texts.push_back({std::move(line.symbol), std::move(line.name), std::move(both)});
    return true;
}

void Catalogue::AddEntry(const CatalogueLine& line, std::size_t position)
{
    const std::uint16_t device = line.device.value_or(NoDevice);
    const std::uint16_t subQuantity = line.subQuantity.value_or(0);
    m_arrays.devices.push_back(device);
    m_arrays.quantities.push_back(line.quantity);
    m_arrays.subQuantities.push_back(subQuantity);
    m_arrays.indexes.push_back(line.index);
    m_arrays.flags.push_back(line.flags);
    m_positions.try_emplace({line.quantity, subQuantity, device, line.index, line.flags}, position);
    m_positions.try_emplace({line.quantity, subQuantity, device, Any, AnyFlags}, position);
    m_positions.try_emplace({line.quantity, Any, Any, Any, AnyFlags}, position);
}

const QuantityTexts* Catalogue::Find(const QuantityKey& key) const
{
    const Pattern fromBestToWorst[] = {
        {key.quantity, key.subQuantity, key.device, key.index, key.flags},
        {key.quantity, key.subQuantity, key.device, Any, AnyFlags},
        {key.quantity, MENSURA_WHOLE_QUANTITY, key.device, Any, AnyFlags},
        {key.quantity, MENSURA_WHOLE_QUANTITY, Any, Any, AnyFlags},
        {key.quantity, Any, Any, Any, AnyFlags},
    };
    for (const Pattern& pattern : fromBestToWorst) {
        if (const auto found = m_positions.find(pattern); found != m_positions.end())
            return &m_texts[found->second];
    }
    return nullptr;
}

} // namespace mensura
