// The unit log: the quantities that the unit library reports, in a file for the service.
#include "StyleAtlas.h"
#include "UnitCalls.h"

namespace
{

constexpr const TCHAR* logPath = _T("C:\\TEMP\\UnitsLog.txt");
constexpr const TCHAR* headLine = _T("Name\tQuantity\tSubquan\tIndx\tdevice\tflags\r\n");
constexpr const TCHAR* gap = _T("\t\t");

// Writes the 16-bit characters as they are in memory, low byte first.
void Write(CFile& file, const CString& text)
{
    file.Write(text.GetString(), static_cast<UINT>(text.GetLength()) * sizeof(TCHAR));
}

} // namespace

CString k_StyleAtlas::WriteUnitLog()
{
    const k_UnitQuantities list = GetUnitQuantities();
    CFile file;
    if (file.Open(logPath, CFile::modeCreate | CFile::modeWrite) == FALSE)
        return {};
    Write(file, headLine);
    for (int i = 0; i < list.Count; ++i) {
        Write(file, GetUnitSymbol(list.Quantities[i], static_cast<WORD>(list.SubQuantities[i]), list.Flags[i],
                                  list.Devices[i], list.Indexes[i], unitSymbolForLog));
        Write(file, gap);
        CString members;
        members.Format(_T("Quantity = %d\tSubQuantity = %d\tIndex = %d\tDevice = %d\tFlags = %d\r\n"),
                       list.Quantities[i], list.SubQuantities[i], list.Indexes[i], list.Devices[i],
                       list.Flags[i]);
        Write(file, members);
    }
    file.Close();
    return {};
}
