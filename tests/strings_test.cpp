// Strings, their conversions and the array of pointers.
#include <afxcoll.h>
#include <afxstr.h>

#include <climits>
#include <malloc.h>
#include <platform/system/Unicode.h>

#include <gtest/gtest.h>

namespace
{

using namespace std::string_view_literals;

std::u16string Of(const CString& text)
{
    return {text.GetString(), static_cast<std::size_t>(text.GetLength())};
}

TEST(StringTest, TakesItsOwnTextAsArgument)
{
    CString text(_T("ab"));
    const CString sharer = text;
    std::u16string expected = u"ab";
    for (int i = 0; i < 10; ++i) { // beyond the small-string buffer
        text += text;
        text += text.GetString() + 1;
        expected += expected;
        expected += expected.substr(1);
    }
    EXPECT_EQ(Of(text), expected);
    EXPECT_EQ(Of(sharer), u"ab");

    text.Format(_T("%s|%s"), text.GetString(), text.GetString() + 30);
    EXPECT_EQ(Of(text), expected + u'|' + expected.substr(30));
}

TEST(StringTest, FormatsWholeRangesAndRefusesWhatItDoesNotKnow)
{
    CString text;
    text.Format(_T("%d %d %u%%%s"), INT_MIN, INT_MAX, UINT_MAX, _T(""));
    EXPECT_EQ(Of(text), u"-2147483648 2147483647 4294967295%");
    for (const TCHAR* const format : {_T("x%"), _T("%x"), _T("%5d"), _T("%S")}) {
        EXPECT_THROW(text.Format(format, 1), CInvalidArgException*) << ToUtf8(format);
        EXPECT_EQ(Of(text), u"-2147483648 2147483647 4294967295%");
    }
    EXPECT_THROW(CString(_T("abc"), -1), CInvalidArgException*);
    for (const int outside : {-1, 2, INT_MAX})
        EXPECT_THROW(CString(_T("ab")).GetAt(outside), CInvalidArgException*) << outside;
}

TEST(StringTest, FoldsTheLettersAToZAlone)
{
    EXPECT_EQ(CString(_T("QUORVIAZ\u00C4")).CompareNoCase(_T("quorviaz\u00C4")), 0);
    EXPECT_NE(CString(_T("\u00C4")).CompareNoCase(_T("\u00E4")), 0);
    EXPECT_NE(CString(_T("\u212A")).CompareNoCase(_T("k")), 0) << "the Kelvin sign is no K";
    EXPECT_NE(_wcsicmp(_T("@[\\]^"), _T("`{|}~")), 0) << "neighbours of the letters";
}

TEST(StringTest, ReadsTheNumberThatATextBeginsWith)
{
    EXPECT_EQ(_wtoi(_T(" \t-07x9")), -7);
    EXPECT_EQ(_wtoi(_T("-99999999999999999999")), INT_MIN);
}

TEST(TextTest, APathIsTakenApartOrNotAtAll)
{
    const std::tuple<LPCTSTR, int, std::u16string_view> cases[] = {
        {_T("C:\\ab/c.d.e"), 0, u"C:|\\ab/|c.d|.e"},
        {_T("/a.b/c"), 0, u"|/a.b/|c|"},
        {_T("C:a"), 0, u"C:||a|"},
        {_T(".e"), 0, u"|||.e"},
        {_T("/abcde/"), 0, u"|/abcde/||"},
        {_T("C:/abcdef/x.y"), 34, u"|||"},
        {_T("C:/a/abcdefgh"), 34, u"|||"},
        {_T(""), 0, u"|||"},
        {nullptr, 22, u"|||"}};
    for (const auto& [path, result, parts] : cases) {
        TCHAR drive[3] = {}, folder[8] = {}, name[8] = {}, extension[4] = {};
        EXPECT_EQ(_wsplitpath_s(path, drive, 3, folder, 8, name, 8, extension, 4), result);
        EXPECT_EQ(Of(CString(drive) + _T("|") + folder + _T("|") + name + _T("|") + extension), parts);
    }
    TCHAR folder[3] = _T("?");
    EXPECT_EQ(_wsplitpath_s(_T("C:/long"), nullptr, 0, folder, 3, nullptr, 0, nullptr, 0), 0);
    EXPECT_EQ(Of(folder), u"/");
    EXPECT_EQ(_wsplitpath_s(_T("C:/a"), nullptr, 3, folder, 3, nullptr, 0, nullptr, 0), 22);
    EXPECT_EQ(Of(folder), u"");
}

TEST(UnicodeTest, EverySixteenBitTextComesBack)
{
    constexpr char16_t before[] = {u'a', 0xD800, 0xDBFF, 0xDC00, 0xFFFF};
    for (unsigned unit = 0; unit <= 0xFFFF; ++unit) {
        for (const char16_t first : before) {
            const std::u16string text{first, static_cast<char16_t>(unit), 0xDC00};
            ASSERT_EQ(ToUtf16(ToUtf8(text)), text) << unit;
        }
    }
    EXPECT_EQ(ToUtf8(u"\U0001F600\U0010FFFF"), "\xF0\x9F\x98\x80\xF4\x8F\xBF\xBF");
}

TEST(UnicodeTest, CountsTheTerminatorOfATextWhoseLengthIsNotGiven)
{
    char bytes[4] = {};
    EXPECT_EQ(WideCharToMultiByte(65001, 0, _T("\u00E9"), 1, bytes, 4, nullptr, nullptr), 2);
    EXPECT_EQ(WideCharToMultiByte(65001, 0, _T("\u00E9"), -1, bytes, 4, nullptr, nullptr), 3);
}

TEST(UnicodeTest, EachStrayByteBecomesOneReplacement)
{
    constexpr std::pair<std::string_view, std::u16string_view> cases[] = {
        {"\xC0\x80"sv, u"\uFFFD\uFFFD"},                     // overlong
        {"\xF4\x90\x80\x80"sv, u"\uFFFD\uFFFD\uFFFD\uFFFD"}, // above U+10FFFF
        {"a\xE2\x82z"sv, u"a\uFFFD\uFFFDz"},                 // truncated
        {"a\0b"sv, u"a\0b"sv}};
    for (const auto& [bytes, text] : cases)
        EXPECT_EQ(ToUtf16(bytes), text) << ::testing::PrintToString(bytes);
}

TEST(PtrArrayTest, GrowsWithNullsAndASizeThatIsRefusedChangesNothing)
{
    int thing = 0;
    CPtrArray array;
    array.SetAtGrow(20, &thing);
    array.SetSize(1000);
    EXPECT_EQ(array.Add(&thing), 1000);
    EXPECT_THROW(array.SetSize(-1), CInvalidArgException*);
    for (const INT_PTR index : {-1, 1001})
        EXPECT_THROW(array.SetAt(index, nullptr), CInvalidArgException*) << index;
    EXPECT_THROW(array.SetAtGrow(-1, nullptr), CInvalidArgException*);
    // More than the address space, and more than size_t can express in bytes.
    for (const INT_PTR size : {INT_PTR{1} << 45, INTPTR_MAX}) {
        EXPECT_THROW(array.SetSize(size), CMemoryException*) << size;
        EXPECT_THROW(array.SetAtGrow(size, nullptr), CMemoryException*) << size;
        EXPECT_THROW(array.SetSize(2000, size), CMemoryException*) << size;
    }
    ASSERT_EQ(array.GetSize(), 1001);
    for (INT_PTR i = 0; i < 1000; ++i)
        ASSERT_EQ(array.GetAt(i), i == 20 ? &thing : nullptr) << i;
}

TEST(PtrArrayTest, GivesItsMemoryBack)
{
    const std::size_t before = mallinfo2().uordblks;
    for (int i = 0; i < 100; ++i) {
        CPtrArray emptied;
        CPtrArray array;
        emptied.SetSize(1000);
        emptied.SetSize(0);
        array.SetSize(1000);
    }
    EXPECT_LE(mallinfo2().uordblks, before + 20000);
}

TEST(ObjectTest, ReportsThatThereIsNoMemoryForIt)
{
    struct Huge : CObject {
        char Rest[std::size_t{1} << 60];
    };
    EXPECT_THROW(std::unique_ptr<Huge>(new Huge), CMemoryException*);
}

} // namespace
