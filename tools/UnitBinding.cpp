#include "UnitBinding.h"

#include <mensura.h>

namespace atlaslayout
{
namespace
{

CString SymbolForModel(WORD quantity, WORD subQuantity, DWORD flags, WORD device, WORD index,
                       k_UnitSymbolMode mode)
{
    return MensuraGetSymbolW(quantity, subQuantity, flags, device, index, mode);
}

} // namespace

k_UnitQuantities ListUnits()
{
    k_UnitQuantities list;
    MensuraGetQuantitiesW(&list.Devices, &list.Quantities, &list.SubQuantities, &list.Indexes, &list.Flags,
                          &list.Count);
    return list;
}

void BindUnits()
{
    SetUnitCalls({ListUnits, SymbolForModel});
}

} // namespace atlaslayout
