// What the rows are called.
#include "support/ScriptedModel.h"

#include <gtest/gtest.h>
#include <model/Language.h>
#include <model/StyleAtlas.h>

namespace
{

int asked = 0; // of the language

} // namespace

// The language of this program, in place of the library's.
CString k_GlossaW::GetUnStrippedText(CString strText, CString strSection, bool bUseUserLanguage)
{
    ++asked;
    if (strSection != k_LanguageSection || !bUseUserLanguage)
        return _T("unasked");
    return strText == _T("Device_1")    ? _T("Bench")
           : strText == _T("Device_2")  ? _T("DEVICE_2") // only the case differs
           : strText == _T("Device_-1") ? _T("Nowhere")
                                        : strText;
}

namespace
{

std::u16string Text(const CString& text)
{
    return text.GetString();
}

TEST(Labels, NameTheDeviceWhereTheLanguageHasANameForIt)
{
    const struct {
        short Device;
        BYTE Level;
        std::u16string Symbol;
        std::u16string Label;
        std::u16string RowLabel;
        std::u16string Tooltip;
        int Asked;
    } cases[] = {
        {1, 0, u"7.65535.4294967294.1.200.0", u" - Bench", u" - Bench", u"Bench", 3},
        {1, 1, u"7.65535.4294967294.1.200.0", u" - Bench", u"", u"Bench", 2},
        {2, 0, u"7.65535.4294967294.2.200.0", u"", u"", u"", 3},
        {3, 0, u"7.65535.4294967294.3.200.0", u"", u"", u"", 3},
        {0, 0, u"7.65535.4294967294.0.200.0", u"", u"", u"", 0},
        {-1, 0, u"7.65535.4294967294.-1.200.0", u"", u" - Nowhere", u"", 1},
        {-1, 2, u"7.65535.4294967294.-1.200.0", u"", u"", u"", 0},
    };
    k_StyleAtlas atlas;
    for (const auto& each : cases) {
        const INT_PTR row = atlas.AddRow({7, 65535, 200, each.Device, 0xFFFFFFFE}, each.Level);
        asked = 0;
        EXPECT_EQ(Text(atlas.GetRow(row)->GetLabel()), each.Symbol + each.Label);
        EXPECT_EQ(Text(atlas.GetRowLabel(row)), each.Symbol + each.RowLabel);
        EXPECT_EQ(Text(atlas.GetRow(row)->GetTooltipLabel()), each.Tooltip);
        EXPECT_EQ(asked, each.Asked);
    }
    EXPECT_EQ(atlas.GetRowLabel(atlas.Rows.Add(nullptr)), _T("?"));
    EXPECT_EQ(atlas.GetRowLabel(atlas.Rows.GetSize()), _T(""));
    EXPECT_THROW(atlas.GetRowLabel(-1), CInvalidArgException*);
}

} // namespace
