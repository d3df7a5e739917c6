// A host of the style atlas, in a prefix of its own and in German: with three quantities in the unit library,
// of which the last two are one group, and with somebody who reads its messages.
#pragma once

#include "LayoutBytes.h"
#include "TempPrefix.h"

#include <QApplication>
#include <QSettings>
#include <QWidget>
#include <frame/ModuleObjects.h>
#include <gtest/gtest.h>
#include <include/styleatlas.h>
#include <model/StyleAtlasLookup.h>
#include <platform/system/MessageDoor.h>
#include <tuple>

namespace test
{

inline WORD devices[] = {0, 65535, 7};
inline WORD quantities[] = {1, 2, 2};
inline int subQuantities[] = {0, 70000, -2};
inline WORD indexes[] = {0, 300, 1};
inline DWORD flags[] = {0, 0x80000001, 5};

inline void ReportUnits(WORD** d, WORD** q, int** s, WORD** i, DWORD** f, int* count)
{
    std::tie(*d, *q, *s, *i, *f, *count) = std::tuple(devices, quantities, subQuantities, indexes, flags, 3);
}

inline const WCHAR* WINAPI NameUnit(DWORD quantity, DWORD subQuantity, DWORD, DWORD, DWORD, int mode)
{
    return quantity == 1 ? _T("") : mode == 1 && subQuantity == 70000 - 65536 ? _T("\x3A9") : _T("U");
}

inline QString told; // in message boxes

// Behind a message the windows are painted.
inline int TellUser(HWND /*owner*/, LPCWSTR text, LPCWSTR caption, UINT type)
{
    if (QWidget* const dialog = QApplication::activeModalWidget())
        dialog->grab();
    told += QString("%1: %2 %3").arg(caption).arg(text).arg(type);
    return IDOK;
}

class AtlasHost : public testing::Test
{
protected:
    AtlasHost()
    {
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_prefix.Path().c_str());
        g_App.m_hUnitLibrary = reinterpret_cast<HMODULE>(&g_App);
        g_App.m_pfnGetQuantities = ReportUnits;
        g_App.m_pfnGetSymbol = NameUnit;
        told.clear();
        SetMessageDoor(TellUser);
        g_StyleAtlas.FilePath = _T("");
        m_prefix.MakeFolder("ProgramData/Halvorn/Bench");
        StyleAtlasSetApplication(u"Bench");
        Write("a", 32, 2);
    }
    ~AtlasHost() override { SetMessageDoor(nullptr); }

    std::filesystem::path PathOf(const std::string& name)
    {
        return m_prefix.MakeFolder() / (name + ".layout");
    }

    // A layout file of one row with that many records, the first as wide as told.
    void Write(const char* name, DWORD columns, short width, WORD quantity = 1)
    {
        k_StyleAtlas atlas;
        atlas.ColumnCount = columns;
        k_QuantityDesc& row = *atlas.GetRow(atlas.AddRow({quantity, 0, 0, 0, 0}, 0));
        while (row.Styles.GetSize() < static_cast<INT_PTR>(columns))
            row.Styles.Add(new k_LineDef);
        if (columns > 0)
            row.GetColumnStyle(0)->LineWidth = width;
        WriteWhole(PathOf(name), BytesOf(atlas));
    }

    // The width of the first cell as a host gets it; -1 for no answer.
    static short Query()
    {
        uint32_t color = 0;
        int16_t width = -1;
        int16_t other = 0;
        uint8_t uses = 0;
        const int found =
            GetStyleAtlas(0, 1, 0, 0, 0, 0, &color, &other, &other, &other, &color, &other, &width, &uses);
        return found == STYLEATLAS_FOUND ? width : -1;
    }

    TempPrefix m_prefix;
    const ScopedVariable m_german{"LC_ALL", "de_DE.UTF-8"};
};

} // namespace test
