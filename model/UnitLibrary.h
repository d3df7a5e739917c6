// What the model asks of the unit library. The module that binds the library defines the functions.
#pragma once

#include <afxstr.h>
#include <windows.h>

// The list of quantities: five arrays of Count elements, which stay the unit library's.
struct k_UnitQuantities {
    WORD* Devices = nullptr;
    WORD* Quantities = nullptr;
    int* SubQuantities = nullptr;
    WORD* Indexes = nullptr;
    DWORD* Flags = nullptr;
    int Count = 0;
};

// The quantities that the unit library reports at this moment; an empty list where the library is not bound
// or lacks the entry point.
AFX_EXT_API k_UnitQuantities GetUnitQuantities();

// What a quantity's text is wanted for.
enum k_UnitSymbolMode { unitSymbolForLabel = 0, unitSymbolForLog = 1 };

// The text that the unit library shows for a quantity, or for a group of them; an empty text where the
// library is not bound or lacks the entry point. A failed allocation raises the memory exception.
AFX_EXT_API CString GetUnitSymbol(WORD quantity, WORD subQuantity, DWORD flags, WORD device, WORD index,
                                  k_UnitSymbolMode mode);
