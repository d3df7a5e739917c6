#include "StyleAtlas.h"
#include "UnitLibrary.h"

#include <array>
#include <utility>

namespace
{

constexpr BYTE groupLevel = 0;
constexpr BYTE subQuantityLevel = 1;
constexpr BYTE indexLevel = 2;

// Of the sub-quantity and of the index only the lowest 8 bits count.
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

// The distinct sub-quantities of a pool, in order of first appearance.
class SubQuantities
{
public:
    explicit SubQuantities(const k_QuantityPool& pool)
    {
        std::array<bool, possible> seen{};
        for (INT_PTR i = 0; i < pool.GetSize(); ++i) {
            const WORD value = pool.GetAt(i)->SubQuantity;
            if (!std::exchange(seen[value], true))
                m_values[m_count++] = value;
        }
    }

    std::size_t Count() const { return m_count; }
    const WORD* begin() const { return m_values.data(); }
    const WORD* end() const { return m_values.data() + m_count; }

private:
    static constexpr std::size_t possible = 256; // see KeyOf

    std::array<WORD, possible> m_values;
    std::size_t m_count = 0;
};

} // namespace

std::unique_ptr<k_QuantityPool> k_StyleAtlas::TakeMatching(k_QuantityPool& pool, WORD quantity,
                                                           WORD subQuantity, WORD device)
{
    auto taken = std::make_unique<k_QuantityPool>();
    void** const records = pool.GetData();
    INT_PTR kept = 0;
    for (INT_PTR i = 0; i < pool.GetSize(); ++i) {
        auto* const pRecord = static_cast<QuantityKey*>(records[i]);
        const bool passes = pRecord->Quantity == quantity &&
                            (subQuantity == k_Any || pRecord->SubQuantity == subQuantity) &&
                            (device == k_Any || static_cast<WORD>(pRecord->Device) == device);
        if (passes)
            taken->Add(pRecord);
        // In this order one of the pools holds the record at every moment.
        records[i] = nullptr;
        if (!passes)
            records[kept++] = pRecord;
    }
    pool.SetSize(kept);
    return taken->IsEmpty() ? nullptr : std::move(taken);
}

INT_PTR k_StyleAtlas::BuildCatalogue()
{
    Clear();
    const k_UnitQuantities list = GetUnitQuantities();
    k_QuantityPool master;
    for (int i = 0; i < list.Count; ++i)
        master.AddRecord(KeyOf(list, i));
    while (!master.IsEmpty()) {
        const QuantityKey leader = *master.GetAt(0);
        const auto group = TakeMatching(master, leader.Quantity, k_Any, static_cast<WORD>(leader.Device));
        AddGroup(leader, *group);
    }
    return Rows.GetSize();
}

// Adds the rows of one Quantity and Device: a single row, or a group row and its sub-quantities.
void k_StyleAtlas::AddGroup(QuantityKey leader, k_QuantityPool& group)
{
    if (group.GetSize() == 1) {
        AddRow(*group.GetAt(0), groupLevel);
        return;
    }
    QuantityKey groupRow;
    groupRow.Quantity = leader.Quantity;
    groupRow.SubQuantity = k_GroupSubQuantity;
    groupRow.Device = leader.Device;
    AddRow(groupRow, groupLevel);

    const SubQuantities subQuantities(group);
    for (const WORD subQuantity : subQuantities) {
        const auto records =
            TakeMatching(group, leader.Quantity, subQuantity, static_cast<WORD>(leader.Device));
        if (subQuantities.Count() > 1) {
            AddSubQuantity(*records);
            continue;
        }
        for (INT_PTR i = 0; i < records->GetSize(); ++i)
            AddRow(*records->GetAt(i), subQuantityLevel);
    }
}

// Adds a head, and below it the records of one sub-quantity that the head doesn't stand for.
void k_StyleAtlas::AddSubQuantity(const k_QuantityPool& records)
{
    QuantityKey head = *records.GetAt(0);
    head.Index = 0;
    AddRow(head, subQuantityLevel);
    for (INT_PTR i = 0; i < records.GetSize(); ++i) {
        const QuantityKey& key = *records.GetAt(i);
        if (key.Index != 0)
            AddRow(key, indexLevel);
        else if (key != head)
            AddRow(key, subQuantityLevel);
    }
}
