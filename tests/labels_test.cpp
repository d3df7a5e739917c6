// What the rows are called.
#include "support/ScriptedModel.h"

#include <gtest/gtest.h>
#include <model/Language.h>

// The language of this program, in place of the library's: it has no name for device 3, and for 2 the key.
CString k_GlossaW::GetUnStrippedText(CString strText, CString /*strSection*/, bool /*bUseUserLanguage*/)
{
    return strText == _T("Device_1")   ? _T("Bench")
           : strText == _T("Device_2") ? _T("DEVICE_2")
           : strText == _T("Device_3") ? strText
                                       : _T("Nowhere");
}

TEST(Labels, NameTheDeviceWhereTheLanguageHasANameForIt)
{
    // Device, level, label, label in the outline, tooltip.
    const std::tuple<short, BYTE, LPCTSTR, LPCTSTR, LPCTSTR> cases[] = {
        {1, 0, _T("7.65535.9.1.5.0 - Bench"), _T("7.65535.9.1.5.0 - Bench"), _T("Bench")},
        {1, 1, _T("7.65535.9.1.5.0 - Bench"), _T("7.65535.9.1.5.0"), _T("Bench")},
        {2, 0, _T("7.65535.9.2.5.0"), _T("7.65535.9.2.5.0"), _T("")},
        {3, 0, _T("7.65535.9.3.5.0"), _T("7.65535.9.3.5.0"), _T("")},
        {0, 0, _T("7.65535.9.0.5.0"), _T("7.65535.9.0.5.0"), _T("")},
        {-1, 0, _T("7.65535.9.-1.5.0"), _T("7.65535.9.-1.5.0 - Nowhere"), _T("")},
        {-1, 2, _T("7.65535.9.-1.5.0"), _T("7.65535.9.-1.5.0"), _T("")},
    };
    k_StyleAtlas atlas;
    for (const auto& [device, level, label, rowLabel, tooltip] : cases) {
        const INT_PTR row = atlas.AddRow({7, 65535, 5, device, 9}, level);
        EXPECT_EQ(atlas.GetRow(row)->GetLabel(), label);
        EXPECT_EQ(atlas.GetRowLabel(row), rowLabel);
        EXPECT_EQ(atlas.GetRow(row)->GetTooltipLabel(), tooltip);
    }
    EXPECT_EQ(atlas.GetRowLabel(atlas.Rows.Add(nullptr)), _T("?"));
    EXPECT_EQ(atlas.GetRowLabel(atlas.Rows.GetSize()), _T(""));
    EXPECT_THROW(atlas.GetRowLabel(-1), CInvalidArgException*);
}
