// The mapping between drive paths and native paths, and that no drive path leads out of its drive.
#include <platform/system/Paths.h>
#include <platform/system/Unicode.h>

#include "support/ChildProcess.h"
#include "support/TempPrefix.h"

#include <array>
#include <gtest/gtest.h>
#include <pwd.h>

namespace
{

TEST(PathsTest, ThePrefixIsNamedOrStandsInTheUsersDataFolder)
{
    const std::string ofUser = std::string(getpwuid(geteuid())->pw_dir) + "/.local/share/styleatlas";
    const char* const known = ofUser.c_str();
    const std::array<const char*, 4> cases[] = {{"/p//", "/d", "/h", "/p"},
                                                {"", "/d", "/h", "/d/styleatlas"},
                                                {nullptr, "/d//", "/h", "/d/styleatlas"},
                                                {nullptr, "d", "/h", "/h/.local/share/styleatlas"},
                                                {nullptr, nullptr, "/h", "/h/.local/share/styleatlas"},
                                                {nullptr, nullptr, "h", known},
                                                {nullptr, nullptr, nullptr, known}};
    for (const auto& [named, dataHome, userHome, expected] : cases) {
        const test::ScopedVariable prefix("STYLEATLAS_PREFIX", named);
        const test::ScopedVariable data("XDG_DATA_HOME", dataHome);
        const test::ScopedVariable home("HOME", userHome);
        EXPECT_EQ(PrefixFolder(), expected);
    }
}

// The environment belongs to the real user.
TEST(PathsTest, AHostThatActsForAnotherUserTakesThatUsersFolder)
{
    if (geteuid() != 0)
        GTEST_SKIP() << "needs two users";
    const test::ScopedVariable prefix("STYLEATLAS_PREFIX", "/p");
    const std::string home = getpwuid(test::userWithoutRights)->pw_dir;
    const auto takesIt = [&home] {
        return seteuid(test::userWithoutRights) == 0 && PrefixFolder() == home + "/.local/share/styleatlas";
    };
    EXPECT_EQ(test::RunInChild(takesIt), 1);
}

TEST(PathsTest, TakesANameWithoutRegardToCaseWhereItIsNotThereAsWritten)
{
    const test::TempPrefix prefix;
    for (const char* const folder : {"Both", "BOTH", "\u00C4a"})
        prefix.MakeFolder(folder);
    test::WriteWhole(prefix.Native("Both/File"), "");
    constexpr std::pair<std::u16string_view, const char*> cases[] = {
        {u"C:\\Both\\File", "Both/File"},     {u"\\Both\\FILE", "Both/File"},
        {u"C:\\BOTH\\FILE", "BOTH/FILE"},     {u"C:\\both\\file", "BOTH/file"}, // the first in byte order
        {u"C:\\\u00E4A\\New", "\u00C4a/New"}, {u"C:\\None\\New", "None/New"}};
    for (const auto& [path, expected] : cases)
        EXPECT_EQ(NativePath(path), prefix.Native(expected)) << "of " << ::testing::PrintToString(path);
}

TEST(PathsTest, FindsTheNativePath)
{
    const test::ScopedVariable prefix("STYLEATLAS_PREFIX", "/p");
    constexpr std::pair<std::u16string_view, std::string_view> cases[] = {
        {u"C:\\a\\b.layout", "/p/drive_c/a/b.layout"},
        {u"c:/a\\b/c", "/p/drive_c/a/b/c"},
        {u"Z:\\A", "/p/drive_z/A"},
        {u"\\a\\b", "/p/drive_c/a/b"},
        {u"\\\\server\\share\\a", "/p/drive_c/server/share/a"},
        {u"C:\\a\\\\.\\b\\", "/p/drive_c/a/b"},
        {u"C:\\a/../..\\../b", "/p/drive_c/b"},
        {u"\\..\\../..\\b", "/p/drive_c/b"},
        {u"C:\\...\\..a", "/p/drive_c/.../..a"},
        {u"/a/../b\\c", "/a/../b\\c"}, // native: a backslash is an ordinary character
        {u"a\\b", "a/b"},
        {u"\u00C4:\\a", "\xC3\x84:/a"}, // not a drive letter
        {u"C:\\\xD800\\\xDC00", "/p/drive_c/\xED\xA0\x80/\xED\xB0\x80"},
        {u"", ""}};
    for (const auto& [path, expected] : cases)
        EXPECT_EQ(NativePath(path), expected) << "of " << ::testing::PrintToString(path);
}

TEST(PathsTest, FindsThePathOfTheDriveWhereThereIsOne)
{
    const test::ScopedVariable prefix("STYLEATLAS_PREFIX", "/p");
    constexpr std::pair<const char*, std::u16string_view> cases[] = {
        {"/p/drive_c/a/b", u"C:\\a\\b"},
        {"/p/drive_c", u"C:\\"},
        {"/p/drive_z/\xED\xA0\x80", u"Z:\\\xD800"},
        {"/p/drive_c/\xFF", u"/p/drive_c/\uFFFD"}};
    for (const auto& [native, expected] : cases)
        EXPECT_EQ(DrivePath(native), expected) << "of " << native;
    for (const char* const native : {"/p/drive_", "/p/drive_cc/a", "/p/drive_C/a", "/p/drive_c/a\\b",
                                     "/p/drive_c/../a", "/pp/drive_c/a", "a", ""})
        EXPECT_EQ(ToUtf8(DrivePath(native)), native);
}

} // namespace
