#include "UnitCalls.h"

namespace
{

constinit k_UnitCalls unitCalls; // not constructed at run time: constructors of static objects set it

} // namespace

void SetUnitCalls(const k_UnitCalls& calls)
{
    unitCalls = calls;
}

k_UnitQuantities GetUnitQuantities()
{
    return unitCalls.GetQuantities != nullptr ? unitCalls.GetQuantities() : k_UnitQuantities();
}

CString GetUnitSymbol(WORD quantity, WORD subQuantity, DWORD flags, WORD device, WORD index,
                      k_UnitSymbolMode mode)
{
    return unitCalls.GetSymbol != nullptr
               ? unitCalls.GetSymbol(quantity, subQuantity, flags, device, index, mode)
               : CString();
}
