#include "UnitCatalogue.h"

#include "mensura.h"

#include <utility>

namespace mensura
{

bool UnitCatalogue::Add(UnitCatalogueLine line)
{
    const std::size_t position = m_texts.size();
    if (position == MaxLines)
        return false;
    if (line.SubQuantity)
        AddEntry(line, position);
    else
        m_positions.try_emplace(
            {line.Quantity, MENSURA_WHOLE_QUANTITY, line.Device ? *line.Device : Any, Any, AnyFlags},
            position);
    std::u16string both = line.Name.empty() ? line.Symbol : line.Symbol + u" (" + line.Name + u")";
    m_texts.push_back({std::move(line.Symbol), std::move(line.Name), std::move(both)});
    return true;
}

void UnitCatalogue::AddEntry(const UnitCatalogueLine& line, std::size_t position)
{
    const std::uint16_t device = line.Device.value_or(noDevice);
    const std::uint16_t subQuantity = line.SubQuantity.value_or(0);
    m_arrays.Devices.push_back(device);
    m_arrays.Quantities.push_back(line.Quantity);
    m_arrays.SubQuantities.push_back(subQuantity);
    m_arrays.Indexes.push_back(line.Index);
    m_arrays.Flags.push_back(line.Flags);
    m_positions.try_emplace({line.Quantity, subQuantity, device, line.Index, line.Flags}, position);
    m_positions.try_emplace({line.Quantity, subQuantity, device, Any, AnyFlags}, position);
    m_positions.try_emplace({line.Quantity, Any, Any, Any, AnyFlags}, position);
}

const QuantityTexts* UnitCatalogue::Find(const QuantityKey& key) const
{
    const Pattern fromBestToWorst[] = {
        {key.Quantity, key.SubQuantity, key.Device, key.Index, key.Flags},
        {key.Quantity, key.SubQuantity, key.Device, Any, AnyFlags},
        {key.Quantity, MENSURA_WHOLE_QUANTITY, key.Device, Any, AnyFlags},
        {key.Quantity, MENSURA_WHOLE_QUANTITY, Any, Any, AnyFlags},
        {key.Quantity, Any, Any, Any, AnyFlags},
    };
    for (const Pattern& pattern : fromBestToWorst) {
        if (const auto found = m_positions.find(pattern); found != m_positions.end())
            return &m_texts[found->second];
    }
    return nullptr;
}

} // namespace mensura
