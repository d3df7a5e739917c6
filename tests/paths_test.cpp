// Where the drives stand in the native file system, and that no path of theirs leads out of them.
#include <platform/system/Paths.h>

#include "support/ChildProcess.h"

#include <gtest/gtest.h>

namespace
{

// Puts an environment variable to a value, null for none, as long as it lives.
class ScopedVariable
{
public:
    ScopedVariable(const char* name, const char* value) : m_name(name), m_wasSet(std::getenv(name) != nullptr)
    {
        if (m_wasSet)
            m_before = std::getenv(name);
        Put(value);
    }
    ScopedVariable(const ScopedVariable&) = delete;
    ScopedVariable& operator=(const ScopedVariable&) = delete;
    ~ScopedVariable() { Put(m_wasSet ? m_before.c_str() : nullptr); }

private:
    void Put(const char* value) const
    {
        if (value != nullptr)
            setenv(m_name, value, 1);
        else
            unsetenv(m_name);
    }

    const char* m_name;
    bool m_wasSet;
    std::string m_before;
};

TEST(PathsTest, ThePrefixIsNamedOrStandsInTheUsersDataFolder)
{
    struct Case {
        const char* Prefix;
        const char* DataHome;
        const char* Home;
        const char* Expected;
    };
    constexpr Case cases[] = {
        {"/p", "/d", "/h", "/p"},
        {"/p//", "/d", "/h", "/p"},
        {"", "/d", "/h", "/d/styleatlas"},
        {nullptr, "/d//", "/h", "/d/styleatlas"},
        {nullptr, "d", "/h", "/h/.local/share/styleatlas"},
        {nullptr, "", "/h/", "/h/.local/share/styleatlas"},
        {nullptr, nullptr, "/h", "/h/.local/share/styleatlas"},
    };
    for (const Case& c : cases) {
        const ScopedVariable prefix("STYLEATLAS_PREFIX", c.Prefix);
        const ScopedVariable data("XDG_DATA_HOME", c.DataHome);
        const ScopedVariable home("HOME", c.Home);
        EXPECT_EQ(PrefixFolder(), c.Expected);
    }
}

// Somebody without a home folder has no drives, and must not get those of the root folder instead.
TEST(PathsTest, WithoutAFolderThereAreNoDrives)
{
    constexpr uid_t unknownUser = 3999999;
    if (geteuid() != 0)
        GTEST_SKIP() << "only the superuser can become a user that the system doesn't know";
    EXPECT_EQ(test::RunInChild([] {
                  for (const char* const name : {"STYLEATLAS_PREFIX", "XDG_DATA_HOME", "HOME"})
                      unsetenv(name);
                  if (setuid(unknownUser) != 0)
                      return 1;
                  return PrefixFolder().empty() && NativePath(u"C:\\x").empty() && NativePath(u"/x") == "/x"
                             ? 0
                             : 2;
              }),
              0);
}

TEST(PathsTest, FindsTheNativePath)
{
    const ScopedVariable prefix("STYLEATLAS_PREFIX", "/p");
    struct Case {
        std::u16string_view Path;
        std::string_view Expected;
    };
    constexpr Case cases[] = {
        {u"C:\\a\\b.layout", "/p/drive_c/a/b.layout"},
        {u"c:/a\\b/c", "/p/drive_c/a/b/c"},
        {u"Z:\\A", "/p/drive_z/A"},
        {u"C:", "/p/drive_c"},
        {u"\\a\\b", "/p/drive_c/a/b"},
        {u"\\\\server\\share\\a", "/p/drive_c/server/share/a"},
        {u"C:\\a\\\\.\\b\\", "/p/drive_c/a/b"},
        {u"C:\\a\\..\\b", "/p/drive_c/b"},
        {u"C:\\a/../..\\../b", "/p/drive_c/b"},
        {u"C:..\\..", "/p/drive_c"},
        {u"\\..\\../..\\b", "/p/drive_c/b"},
        {u"C:\\...\\..a", "/p/drive_c/.../..a"},
        {u"/a/../b\\c", "/a/../b\\c"}, // native, where a backslash is a letter like any other
        {u"a\\b", "a/b"},
        {u"..\\a", "../a"},
        {u"\u00C4:\\a", "\xC3\x84:/a"}, // no letter of a drive
        {u":", ":"},
        {u"C:\\\u00B5\U0001F600", "/p/drive_c/\xC2\xB5\xF0\x9F\x98\x80"},
        {u"C:\\\xD800\\\xDC00", "/p/drive_c/\xED\xA0\x80/\xED\xB0\x80"},
        {u"", ""},
    };
    for (const Case& c : cases)
        EXPECT_EQ(NativePath(c.Path), c.Expected) << "of " << ::testing::PrintToString(c.Path);
}

} // namespace
