// Lifetime of handles, memory contexts, text.
#include "support/Picture.h"

#include <QGuiApplication>
#include <QtConvert.h>
#include <afxwin.h>
#include <gtest/gtest.h>
#include <set>

namespace
{

using namespace test;

TEST(Objects, ComeBackFromTheContextAndGoWithTheirSelection)
{
    const int before = gdi::LiveObjects();
    Picture picture(3, 1);
    CDC& dc = picture.Dc();
    CPen first(PS_SOLID, 1, ink);
    CPen second(PS_SOLID, 1, ink);
    CPen empty;
    CPen* const stock = dc.SelectObject(&first);
    EXPECT_EQ(HPEN(*stock), ::GetStockObject(BLACK_PEN));
    EXPECT_EQ(dc.SelectObject(&second), &first);
    EXPECT_EQ(dc.SelectObject(&empty), nullptr);
    HPEN const bare = ::CreatePen(PS_SOLID, 1, ink);
    ::SelectObject(dc.m_hDC, bare);
    EXPECT_EQ(HPEN(*dc.SelectObject(&second)), bare); // a temporary object of the framework
    EXPECT_EQ(gdi::LiveObjects(), before + 3);
    {
        CDC brief;
        brief.CreateCompatibleDC(nullptr);
        HDC const handle = brief.m_hDC;
        ::SelectObject(handle, bare);
        EXPECT_EQ(CDC::FromHandle(handle), &brief);
        brief.Detach();
        EXPECT_NE(CDC::FromHandle(handle), &brief);
        brief.Attach(handle);
    }
    ::DeleteObject(bare);
    first.DeleteObject();
    EXPECT_TRUE(second.DeleteObject()); // while it is selected
    EXPECT_FALSE(second.DeleteObject());
    dc.LineTo(3, 0);
    EXPECT_EQ(picture.Text(), "###\n");
    EXPECT_EQ(dc.SelectObject(stock), stock);
    EXPECT_EQ(gdi::LiveObjects(), before);
}

TEST(MemoryContext, DrawsOnItsBitmapAndIsCopied)
{
    const int before = gdi::LiveObjects();
    {
        Picture picture(6, 4);
        CDC& dc = picture.Dc();
        CDC memory;
        CBitmap bitmap;
        ASSERT_TRUE(memory.CreateCompatibleDC(&dc));
        memory.FillSolidRect(0, 0, 1, 1, ink); // on nothing
        EXPECT_FALSE(bitmap.CreateCompatibleBitmap(&dc, 32767, 32767));
        ASSERT_TRUE(bitmap.CreateCompatibleBitmap(&dc, 3, 3));
        CBitmap* const old = memory.SelectObject(&bitmap);
        CDC other;
        other.CreateCompatibleDC(nullptr);
        EXPECT_EQ(other.SelectObject(&bitmap), nullptr); // it has a context already
        memory.FillSolidRect(0, 0, 3, 3, ink);
        memory.FillSolidRect(1, 1, 1, 1, filling);
        EXPECT_TRUE(dc.BitBlt(-1, 0, 3, 3, &memory, 0, 0, SRCCOPY));
        EXPECT_TRUE(dc.BitBlt(4, 1, 100, 100, &memory, 1, 1, SRCCOPY));
        EXPECT_TRUE(dc.BitBlt(2, 0, 1, 1, &memory, -5, 0, SRCCOPY));
        EXPECT_EQ(picture.Text(), "##....\no#..o#\n##..##\n......\n");
        EXPECT_TRUE(dc.BitBlt(1, 1, 5, 3, &dc, 0, 0, SRCCOPY)); // onto itself, forwards and backwards
        EXPECT_EQ(picture.Text(), "##....\no##...\n#o#..o\n.##..#\n");
        EXPECT_TRUE(dc.BitBlt(0, 0, 5, 4, &dc, 1, 0, SRCCOPY));
        EXPECT_EQ(picture.Text(), "#.....\n##....\no#..oo\n##..##\n");
        EXPECT_EQ(memory.SelectObject(old), &bitmap);
    }
    EXPECT_EQ(gdi::LiveObjects(), before);
}

constexpr UINT measured = DT_CALCRECT | DT_NOPREFIX;
constexpr UINT label = DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX;

TEST(TextWithoutAnApplication, HasNoSizeAndIsNotDrawn)
{
    Picture picture(60, 20);
    CRect rect(3, 4, 50, 60);
    EXPECT_EQ(picture.Dc().DrawText(_T("text"), rect, measured), 0);
    EXPECT_EQ(rect, CRect(3, 4, 3, 4));
    rect = CRect(0, 0, 60, 20);
    EXPECT_EQ(picture.Dc().DrawText(_T("text"), rect, label), 0);
    EXPECT_TRUE(picture.Painted() == CRect());
    EXPECT_EQ(GetSysColor(COLOR_3DLIGHT), RGB(223, 223, 223)); // the desktop's colours aren't known either
}

class Text : public testing::Test
{
protected:
    Text()
    {
        dc.SetTextColor(ink);
        dc.SetBkMode(TRANSPARENT);
    }

    const int m_offscreen = setenv("QT_QPA_PLATFORM", "offscreen", 1);
    int m_count = 1;
    char m_name[5] = "test";
    char* m_names[2] = {m_name, nullptr};
    const QGuiApplication m_application{m_count, m_names};
    Picture picture{120, 60};
    CDC& dc = picture.Dc();
};

TEST_F(Text, IsMeasuredByLines)
{
    const CSize word = dc.GetTextExtent(_T("word"));
    CRect rect(10, 10, 0, 0);
    EXPECT_EQ(dc.DrawText(_T("word"), rect, measured), word.cy);
    EXPECT_EQ(rect, CRect(10, 10, 10 + word.cx, 10 + word.cy));
    EXPECT_EQ(dc.DrawText(_T("a\nword\r\n"), rect, measured), 3 * word.cy);
    EXPECT_EQ(rect.Width(), word.cx);
    dc.DrawText(_T("w&ord"), rect, DT_CALCRECT); // the ampersand is a mark
    EXPECT_EQ(rect.Width(), word.cx);
    dc.DrawText(_T("w&&ord"), rect, DT_CALCRECT);
    EXPECT_GT(rect.Width(), word.cx);
    EXPECT_EQ(dc.GetTextExtent(_T("words"), 4).cx, word.cx);
    EXPECT_TRUE(picture.Painted() == CRect());
    dc.DrawText(_T("word"), rect, 0);
    const int baseline = picture.Painted().bottom;
    dc.DrawText(_T("w&ord"), rect, 0);
    EXPECT_GT(picture.Painted().bottom, baseline);
}

TEST_F(Text, StaysInItsRectangle)
{
    CRect rect(20, 10, 80, 40);
    const CString longText(_T("text that is much too long for the rectangle"));
    std::set<std::string> looks;
    for (const UINT format : {label, label | DT_END_ELLIPSIS, DT_CENTER | label, UINT{0}}) {
        Picture drawn(120, 60);
        EXPECT_GT(drawn.Dc().DrawText(longText, rect, format), 0);
        const CRect painted = drawn.Painted();
        EXPECT_TRUE(painted.left >= rect.left && painted.right <= rect.right);
        EXPECT_TRUE(painted.top >= rect.top && painted.bottom <= rect.bottom);
        EXPECT_TRUE(looks.insert(drawn.Text()).second); // cut at either end, at both, or with dots
    }
    dc.DrawText(_T("x"), rect, DT_CENTER | label);
    const CRect painted = picture.Painted();
    EXPECT_NEAR(painted.left + painted.right, rect.left + rect.right, 4);
    EXPECT_NEAR(painted.top + painted.bottom, rect.top + rect.bottom, 8);
}

TEST_F(Text, IsFilledBehindAndCut)
{
    const CSize size = dc.GetTextExtent(_T("word"));
    dc.SetBkMode(OPAQUE);
    dc.SetBkColor(gapColor);
    CRect rect(5, 5, 115, 55);
    dc.DrawText(_T("word"), rect, 0);
    EXPECT_EQ(picture.Painted(), CRect(5, 5, 5 + size.cx, 5 + size.cy));
    Picture clipped(120, 60, {8, 7, 12, 60});
    clipped.Dc().DrawText(_T("word"), rect, 0);
    EXPECT_EQ(clipped.Painted(), CRect(8, 7, 12, 5 + size.cy));
}

TEST_F(Text, HasTheDesktopsFont)
{
    QFont wanted(QStringLiteral("a family"));
    wanted.setPixelSize(20);
    wanted.setBold(true);
    wanted.setItalic(true);
    EXPECT_EQ(gdi::ToQFont(gdi::ToLogFont(wanted)), wanted);
}

TEST_F(Text, OfAnyKindIsHarmless)
{
    const CString endless(std::u16string(1000000, u'W').c_str());
    for (const CString& text : {endless, CString(_T("\xD800 \xDC00&"))}) {
        CRect rect(0, 0, 100, 50);
        dc.DrawText(text, rect, label | DT_END_ELLIPSIS);
        dc.DrawText(text, rect, 0);
    }
    EXPECT_EQ(dc.GetTextExtent(endless).cx, dc.GetTextExtent(endless, 8192).cx);
}

} // namespace
