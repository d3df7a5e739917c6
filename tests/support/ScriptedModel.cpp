#include "ScriptedModel.h"

#include <model/UnitCalls.h>

namespace
{

struct Arrays {
    std::vector<WORD> Devices;
    std::vector<WORD> Quantities;
    std::vector<int> SubQuantities;
    std::vector<WORD> Indexes;
    std::vector<DWORD> Flags;
};
Arrays scripted;

k_UnitQuantities Report()
{
    return {scripted.Devices.data(),       scripted.Quantities.data(),
            scripted.SubQuantities.data(), scripted.Indexes.data(),
            scripted.Flags.data(),         static_cast<int>(scripted.Quantities.size())};
}

CString Name(WORD quantity, WORD sub, DWORD flags, WORD device, WORD index, k_UnitSymbolMode mode)
{
    CString text;
    text.Format(_T("%u.%u.%u.%d.%u.%d"), quantity, sub, flags, static_cast<short>(device), index, mode);
    return text;
}

const bool isSet = (SetUnitCalls({Report, Name}), true);

} // namespace

namespace test
{

void SetUnits(std::vector<UnitEntry> entries)
{
    scripted = {};
    for (const UnitEntry& entry : entries) {
        scripted.Devices.push_back(entry.Device);
        scripted.Quantities.push_back(entry.Quantity);
        scripted.SubQuantities.push_back(entry.SubQuantity);
        scripted.Indexes.push_back(entry.Index);
        scripted.Flags.push_back(entry.Flags);
    }
}

std::vector<UnitEntry> SingleQuantities(WORD count)
{
    std::vector<UnitEntry> entries;
    for (int i = 1; i <= count; ++i)
        entries.push_back({.Quantity = static_cast<WORD>(i)});
    return entries;
}

} // namespace test
