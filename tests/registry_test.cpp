// The registry: stored values are read back by any process, and no file in its place crashes the host.
#include "support/ChildProcess.h"
#include "support/RegistryKey.h"
#include "support/TempPrefix.h"

#include <afxpriv.h>

#include <fcntl.h>
#include <list>
#include <sqlite3.h>
#include <sys/stat.h>
#include <tuple>

namespace
{

namespace fs = std::filesystem;
using namespace std::string_literals;
using Key = test::RegistryKey;

constexpr const TCHAR* keyName = _T(".DEFAULT\\Software\\Halvorn");

class RegistryTest : public ::testing::Test
{
protected:
    // As a host does: opens or creates the key, sets the value and reads it back. Returns the first error.
    static LONG UseAsHost(const std::string& bytes = "text")
    {
        Key key;
        LONG result = key.Open(keyName) == ERROR_SUCCESS ? ERROR_SUCCESS : key.Create(keyName);
        result = result == ERROR_SUCCESS ? key.Set(bytes) : result;
        return result != ERROR_SUCCESS || key.Get() == bytes ? result : ERROR_REGISTRY_IO_FAILED;
    }

    // Bypasses the layer.
    void Execute(const std::string& change) const
    {
        sqlite3* database = nullptr;
        ASSERT_EQ(sqlite3_open(file.c_str(), &database), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(database, change.c_str(), nullptr, nullptr, nullptr), SQLITE_OK);
        sqlite3_close(database);
    }

    const test::TempPrefix prefix;
    const fs::path file = prefix.Path() / "registry.db";
};

TEST_F(RegistryTest, EveryTypeAndSizeComesBackInAnotherProcess)
{
    const std::tuple<LPCTSTR, DWORD, std::string> values[] = {
        {_T("text"), REG_SZ, "C\0:\0\0\0"s},
        {_T("\xD800\u00C4"), test::binaryType, std::string(1 << 20, 'y')},
        {_T(""), 77, ""}, // the unnamed value, of an unknown type
    };
    const auto store = [&values] {
        Key key;
        LONG result = key.Create(keyName);
        for (const auto& [name, type, bytes] : values)
            result |= key.Set("before", name) | key.Set(bytes, name, type);
        return result == ERROR_SUCCESS ? 0 : 1;
    };
    EXPECT_EQ(test::RunInChild(store), 0);
    Key key;
    ASSERT_EQ(key.Open(keyName), ERROR_SUCCESS);
    for (const auto& [name, type, bytes] : values) {
        DWORD typeFound = 0;
        EXPECT_EQ(key.Get(name, static_cast<DWORD>(bytes.size()), &typeFound), bytes);
        EXPECT_EQ(typeFound, type);
    }
    for (const DWORD room : {0U, 5U})
        EXPECT_EQ(key.Get(_T("text"), room), "error 234 6");
}

TEST_F(RegistryTest, FindsKeysAndNamesWithoutRegardToCase)
{
    Key key;
    EXPECT_TRUE(key.Open(keyName) == ERROR_FILE_NOT_FOUND && !fs::exists(file)) << "opening creates nothing";
    // Latin, Greek, Cyrillic; \u00D7 is no letter, and one character has no small letter.
    ASSERT_EQ(key.Create(_T("Software\\H\u00C4l\u0178\u0160\u00D7\u03A9\u0416\u0130")), ERROR_SUCCESS);
    EXPECT_EQ(key.Set("1", _T("\u00C9t\u00E9")), ERROR_SUCCESS);
    LPCTSTR const other = _T("\\SOFTWARE\\\\h\u00E4L\u00FF\u0161\u00D7\u03C9\u0436\u0130\\");
    Key same;
    ASSERT_EQ(same.Open(other), ERROR_SUCCESS);
    EXPECT_EQ(same.Get(_T("\u00E9T\u00C9")), "1");
    EXPECT_EQ(Key().Open(_T("SOFTWARE")), ERROR_SUCCESS) << "the keys above are made too";
    for (LPCTSTR const missing : {_T("Software\\H\u00C4l"), _T("Soft"), _T("Software\\H\u00C4lvorn\\x")})
        EXPECT_EQ(Key().Open(missing), ERROR_FILE_NOT_FOUND);

    // As an older version stored them, with only A to Z folded.
    Execute("UPDATE key SET folded = replace(folded, '\u00E4', '\u00C4');"
            "UPDATE value SET folded = '\u00C9t\u00E9'");
    Key older;
    ASSERT_EQ(older.Create(other), ERROR_SUCCESS);
    EXPECT_EQ(older.Set("2", _T("\u00E9t\u00E9")), ERROR_SUCCESS);
    EXPECT_EQ(same.Get(_T("\u00C9T\u00C9")), "2");
}

TEST_F(RegistryTest, ReportsWhatIsNotAllowed)
{
    EXPECT_EQ(Key().Get(), "error 6 2048"); // ERROR_INVALID_HANDLE, for the null handle
    EXPECT_EQ(Key().Set("x"), ERROR_INVALID_HANDLE);
    Key written;
    Key read;
    EXPECT_EQ(written.Create(keyName, KEY_WRITE) | read.Open(keyName, KEY_READ), ERROR_SUCCESS);
    EXPECT_EQ(written.Get(), "error 5 2048");
    EXPECT_EQ(read.Set("2"), ERROR_ACCESS_DENIED);
    std::u16string deep;
    for (int i = 0; i < 10'000; ++i)
        deep += u"a\\";
    EXPECT_EQ(Key().Open(deep.c_str()), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(Key().Create(deep.c_str()), ERROR_INVALID_PARAMETER);
}

TEST_F(RegistryTest, WhatIsNoRegistryIsPutAsideOnce)
{
    test::WriteWhole(file, "garbage");
    EXPECT_EQ(Key().Open(keyName), ERROR_NOT_REGISTRY_FILE);
    EXPECT_EQ(test::ReadWhole(file), "garbage") << "opening changes nothing";
    EXPECT_EQ(UseAsHost(), ERROR_SUCCESS);
    EXPECT_EQ(test::ReadWhole(file.string() + ".damaged"), "garbage");
    test::WriteWhole(file, "garbage again");
    EXPECT_NE(UseAsHost(), ERROR_SUCCESS);
    EXPECT_EQ(test::ReadWhole(file), "garbage again");
    EXPECT_EQ(test::ReadWhole(file.string() + ".damaged"), "garbage");
    EXPECT_TRUE(fs::remove(file) && mkfifo(file.c_str(), 0600) == 0);
    EXPECT_EQ(test::RunInChild([] { return UseAsHost() != ERROR_SUCCESS ? 0 : 1; }), 0);
    fs::remove(file);
    test::WriteWhole(file, "");
    EXPECT_EQ(UseAsHost(), ERROR_SUCCESS) << "an empty file is a registry without keys";
}

// Another program's file may have computed columns: of changing size, or so large that they fill the memory.
TEST_F(RegistryTest, AComputedValueIsRefused)
{
    for (const char* const data : {"'\u00C4'", "hex(zeroblob(200000000))"}) {
        fs::remove(file);
        ASSERT_EQ(UseAsHost(), ERROR_SUCCESS);
        Execute(
            "DROP TABLE value; CREATE TABLE value(key, type AS (1), folded AS ('styleatlas'), name AS (''),"
            " data AS ("s +
            data + ")); INSERT INTO value SELECT id FROM key");
        Key key;
        ASSERT_EQ(key.Open(keyName), ERROR_SUCCESS);
        EXPECT_TRUE(key.Get().starts_with("error 10"));
    }
}

// A host may have closed its standard files: its output must not end up in a file of ours.
TEST_F(RegistryTest, NoFileOfOursTakesTheNumberOfAStandardOne)
{
    EXPECT_EQ(test::RunInChild([] {
                  const auto isFree = [](int number) { return fcntl(number, F_GETFD) < 0; };
                  close(0), close(1), close(2);
                  Key key;
                  CMirrorFile saved;
                  CFile read;
                  if (key.Create(_T("key")) != 0 || key.Set("1") != 0 ||
                      !saved.Open(_T("registry"), CFile::modeCreate | CFile::modeWrite) ||
                      !read.Open(_T("/proc/self/stat"), CFile::modeRead))
                      return 1;
                  return isFree(0) && isFree(1) && isFree(2) ? 0 : 2;
              }),
              0);
}

TEST_F(RegistryTest, TheFolderThatIsMadeForItIsItsOwnersAlone)
{
    const test::ScopedVariable deep("STYLEATLAS_PREFIX", (prefix.Path() / "a/b").c_str());
    EXPECT_EQ(UseAsHost(), ERROR_SUCCESS);
    for (const char* const made : {"a", "a/b"})
        EXPECT_EQ(fs::status(prefix.Path() / made).permissions(), fs::perms::owner_all);
}

TEST_F(RegistryTest, AFileThatMayNotBeWrittenOrGrowKeepsItsValues)
{
    const auto useUnder = [](rlim_t room) {
        Key key;
        if (key.Open(keyName) != ERROR_SUCCESS || !test::LimitFileSize(room))
            return 1;
        return key.Set(std::string(100'000, 'x')) != ERROR_SUCCESS && key.Get() == "before" ? 0 : 2;
    };
    ASSERT_EQ(UseAsHost("before"), ERROR_SUCCESS);
    for (const rlim_t room : {rlim_t{0}, rlim_t{600}, rlim_t{8192}, fs::file_size(file)})
        EXPECT_EQ(test::RunInChild([&] { return useUnder(room); }), 0) << room;
    ASSERT_TRUE(test::GiveToOrdinaryUser(file.c_str()) && test::GiveToOrdinaryUser(prefix.Path().c_str()));
    for (const auto& [rightsOfFile, rightsOfFolder] : {std::pair(0444U, 0755U), {0644U, 0555U}}) {
        fs::permissions(file, fs::perms{rightsOfFile});
        fs::permissions(prefix.Path(), fs::perms{rightsOfFolder}); // no journal can be created
        EXPECT_GT(test::RunInChild([] { return test::BecomeOrdinaryUser() ? UseAsHost("after") : 0; }), 0);
    }
    fs::permissions(prefix.Path(), fs::perms{0755});
    Key key;
    ASSERT_EQ(key.Open(keyName), ERROR_SUCCESS);
    EXPECT_EQ(key.Get(), "before");
}

TEST_F(RegistryTest, ProcessesThatCreateAndWriteAtOnceAllSucceed)
{
    for (int round = 0; round < 12; ++round) {
        fs::remove(file);
        std::list<test::ChildProcess> writers;
        for (const TCHAR* const own : {_T("a"), _T("b"), _T("c"), _T("d")}) {
            writers.emplace_back([own] {
                for (int i = 0; i < 3; ++i) {
                    Key key;
                    if (key.Create(keyName) != 0 || key.Set("x") != 0 || key.Set("y", own) != 0 ||
                        key.Get(own) != "y")
                        return 1;
                }
                return 0;
            });
        }
        for (test::ChildProcess& writer : writers)
            ASSERT_EQ(writer.Wait(), 0) << "in round " << round;
    }
}

} // namespace
