// Builds the outline from the unit library's flat list. Each entry is handled once per level of the outline,
// however many groups there are.
#include "QuantityPool.h"
#include "StyleAtlas.h"
#include "UnitCalls.h"

#include <algorithm>
#include <array>
#include <map>
#include <new>
#include <vector>

namespace
{

constexpr BYTE groupLevel = 0;
constexpr BYTE subQuantityLevel = 1;
constexpr BYTE indexLevel = 2;

constexpr std::size_t maxSubQuantities = 256; // see KeyOf

// In order of first appearance.
using Pools = std::vector<k_QuantityPool>;

// Only the lowest 8 bits of sub-quantity and index count.
QuantityKey KeyOf(const k_UnitQuantities& list, int i)
{
    QuantityKey key;
    key.Quantity = list.Quantities[i];
    key.SubQuantity = static_cast<BYTE>(list.SubQuantities[i]);
    key.Index = static_cast<BYTE>(list.Indexes[i]);
    key.Device = static_cast<short>(list.Devices[i]);
    key.Flags = list.Flags[i];
    return key;
}

std::vector<k_PooledQuantity> EntriesOf(const k_UnitQuantities& list)
{
    std::vector<k_PooledQuantity> entries(static_cast<std::size_t>(std::max(list.Count, 0)));
    for (int i = 0; i < list.Count; ++i)
        entries[static_cast<std::size_t>(i)].Key = KeyOf(list, i);
    return entries;
}

// The first entry of a group is its leader. It takes the entries of its Quantity and Device or, if it has no
// device, of its Quantity, unless an earlier leader has taken them. So an entry belongs to the leader of its
// own Quantity and Device or, if there is none yet, to the leader without a device.
Pools DivideIntoGroups(std::vector<k_PooledQuantity>& entries)
{
    const auto leaderOf = [](WORD quantity, WORD device) { return DWORD{quantity} << 16 | device; };
    std::map<DWORD, std::size_t> places; // not a hash, whose keys a hostile list could make collide
    Pools groups;
    for (k_PooledQuantity& entry : entries) {
        const WORD quantity = entry.Key.Quantity;
        const auto [own, isNew] =
            places.try_emplace(leaderOf(quantity, static_cast<WORD>(entry.Key.Device)), groups.size());
        if (isNew) {
            const auto any = places.find(leaderOf(quantity, k_Any));
            if (any != places.end() && any != own)
                own->second = any->second;
            else
                groups.emplace_back();
        }
        groups[own->second].Add(entry);
    }
    return groups;
}

Pools DivideBySubQuantity(k_QuantityPool& group)
{
    std::array<WORD, maxSubQuantities> numbers{}; // position of each one's pool, from 1; 0 is none
    Pools pools;
    group.MoveAll([&](const QuantityKey& key) -> k_QuantityPool& {
        WORD& number = numbers[key.SubQuantity];
        if (number == 0) {
            pools.emplace_back();
            number = static_cast<WORD>(pools.size());
        }
        return pools[number - 1U];
    });
    return pools;
}

} // namespace

INT_PTR k_StyleAtlas::BuildCatalogue()
{
    Clear();
    try {
        std::vector<k_PooledQuantity> entries = EntriesOf(GetUnitQuantities());
        for (k_QuantityPool& group : DivideIntoGroups(entries))
            AddGroup(group);
    } catch (const std::bad_alloc&) {
        AfxThrowMemoryException();
    }
    return Rows.GetSize();
}

// Adds the rows of one group: a single row, or a group row and its sub-quantities.
void k_StyleAtlas::AddGroup(k_QuantityPool& group)
{
    if (group.HoldsOne()) {
        AddRow(group.First(), groupLevel);
        return;
    }
    QuantityKey groupRow;
    groupRow.Quantity = group.First().Quantity;
    groupRow.SubQuantity = k_GroupSubQuantity;
    groupRow.Device = group.First().Device;
    AddRow(groupRow, groupLevel);

    const Pools subQuantities = DivideBySubQuantity(group);
    if (subQuantities.size() == 1) {
        subQuantities.front().ForEach([this](const QuantityKey& key) { AddRow(key, subQuantityLevel); });
        return;
    }
    for (const k_QuantityPool& records : subQuantities)
        AddSubQuantity(records);
}

// Adds a head and, below it, the records that the head doesn't already represent.
void k_StyleAtlas::AddSubQuantity(const k_QuantityPool& records)
{
    QuantityKey head = records.First();
    head.Index = 0;
    AddRow(head, subQuantityLevel);
    records.ForEach([&](const QuantityKey& key) {
        if (key.Index != 0)
            AddRow(key, indexLevel);
        else if (key != head)
            AddRow(key, subQuantityLevel);
    });
}
