// The unit library's functions, as the model calls them.
#pragma once

#include <afxstr.h>
#include <windows.h>

// The list of quantities: five arrays of Count elements, owned by the unit library.
struct k_UnitQuantities {
    WORD* Devices = nullptr;
    WORD* Quantities = nullptr;
    int* SubQuantities = nullptr;
    WORD* Indexes = nullptr;
    DWORD* Flags = nullptr;
    int Count = 0;
};

// The purpose of a text.
enum k_UnitSymbolMode { unitSymbolForLabel = 0, unitSymbolForLog = 1 };

// The implementations, set by the module that binds the unit library.
struct k_UnitCalls {
    k_UnitQuantities (*GetQuantities)() = nullptr;
    CString (*GetSymbol)(WORD quantity, WORD subQuantity, DWORD flags, WORD device, WORD index,
                         k_UnitSymbolMode mode) = nullptr;
};
void SetUnitCalls(const k_UnitCalls& calls);

// The quantities that the unit library currently reports; an empty list if the library is not bound or lacks
// the entry point.
k_UnitQuantities GetUnitQuantities();

// The unit library's text for a quantity or a group of them; empty if the library is not bound or lacks the
// entry point. A failed allocation raises the memory exception.
CString GetUnitSymbol(WORD quantity, WORD subQuantity, DWORD flags, WORD device, WORD index,
                      k_UnitSymbolMode mode);
