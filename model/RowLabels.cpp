// The texts that name a row: the unit library's symbol of its quantity and the translated name of its device.
#include "Language.h"
#include "StyleAtlas.h"
#include "UnitCalls.h"

namespace
{

constexpr const TCHAR* emptyRow = _T("?");
constexpr const TCHAR* deviceSeparator = _T(" - ");

// A language without a name for the device returns the key.
void AppendDevice(CString& text, LPCTSTR separator, int device)
{
    CString key;
    key.Format(_T("Device_%d"), device);
    const CString name = g_Language.GetUnStrippedText(key, k_LanguageSection, true);
    if (name.CompareNoCase(key) == 0)
        return;
    text += separator;
    text += name;
}

CString SymbolOf(const k_QuantityDesc& row)
{
    QuantityKey key;
    row.GetKey(key);
    return GetUnitSymbol(key.Quantity, key.SubQuantity, key.Flags, static_cast<WORD>(key.Device), key.Index,
                         unitSymbolForLabel);
}

} // namespace

CString k_QuantityDesc::GetLabel() const
{
    CString label = SymbolOf(*this);
    if (Device > 0)
        AppendDevice(label, deviceSeparator, Device);
    return label;
}

CString k_QuantityDesc::GetTooltipLabel() const
{
    CString label;
    if (Device > 0)
        AppendDevice(label, _T(""), Device);
    return label;
}

CString k_StyleAtlas::GetRowLabel(INT_PTR row) const
{
    if (row >= Rows.GetSize())
        return {};
    const k_QuantityDesc* const pRow = Rows.GetAt(row);
    if (pRow == nullptr)
        return emptyRow;
    CString label = SymbolOf(*pRow);
    if (pRow->Level == 0 && pRow->Device != 0)
        AppendDevice(label, deviceSeparator, pRow->Device);
    return label;
}
