// The registry: what was stored comes back, in any process, and no file in its place brings the host down.
#include "support/ChildProcess.h"
#include "support/TempPrefix.h"

#include <windows.h>

#include <array>
#include <chrono>
#include <cstring>
#include <fcntl.h>
#include <random>
#include <sqlite3.h>
#include <sys/stat.h>
#include <vector>

#include <gtest/gtest.h>

namespace
{

namespace fs = std::filesystem;
using namespace std::string_literals;

constexpr const TCHAR* keyName = _T(".DEFAULT\\Software\\Halvorn");
constexpr const TCHAR* valueName = _T("StyleAtlas");
constexpr REGSAM fullAccess = KEY_READ | KEY_WRITE;
constexpr int bufferSize = 2048;
constexpr long mostMemory = 100'000; // kilobytes that a call on a strange file or name may take

long PeakMemory()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

// An open key; null where it can't be opened.
class Key
{
public:
    static LONG Open(LPCTSTR name, Key& key, REGSAM access = fullAccess)
    {
        return RegOpenKeyExW(HKEY_USERS, name, 0, access, &key.m_handle);
    }
    static LONG Create(LPCTSTR name, Key& key, REGSAM access = fullAccess)
    {
        return RegCreateKeyExW(HKEY_USERS, name, 0, nullptr, 0, access, nullptr, &key.m_handle, nullptr);
    }
    Key() = default;
    Key(const Key&) = delete;
    Key& operator=(const Key&) = delete;
    ~Key() { RegCloseKey(m_handle); }

    LONG Set(const std::string& bytes, LPCTSTR name = valueName, DWORD type = REG_SZ) const
    {
        return RegSetValueExW(m_handle, name, 0, type, reinterpret_cast<const BYTE*>(bytes.data()),
                              static_cast<DWORD>(bytes.size()));
    }

    // Reads into a buffer of that many bytes; a result says "error <number>".
    std::string Get(LPCTSTR name = valueName, DWORD room = bufferSize, DWORD* type = nullptr) const
    {
        std::vector<BYTE> buffer(room, 0xCC);
        DWORD size = room;
        DWORD found = 0;
        const LONG result = RegQueryValueExW(m_handle, name, nullptr, type ? type : &found, buffer.data(), &size);
        if (result == ERROR_SUCCESS)
            return {buffer.begin(), buffer.begin() + size};
        EXPECT_EQ(std::count(buffer.begin(), buffer.end(), 0xCC), static_cast<std::ptrdiff_t>(room));
        return "error " + std::to_string(result) + (result == ERROR_MORE_DATA ? " " + std::to_string(size) : "");
    }

private:
    HKEY m_handle = nullptr;
};

class RegistryTest : public ::testing::Test
{
protected:
    // What a host does: opens or creates the key, sets the value and reads it back; the first failure.
    static LONG UseAsHost(const std::string& bytes = "text")
    {
        Key key;
        LONG result = Key::Open(keyName, key);
        if (result != ERROR_SUCCESS)
            result = Key::Create(keyName, key);
        if (result == ERROR_SUCCESS)
            result = key.Set(bytes);
        return result != ERROR_SUCCESS || key.Get() == bytes ? result : ERROR_REGISTRY_IO_FAILED;
    }

    void ExecuteInDatabase(const char* statements) const
    {
        sqlite3* database = nullptr;
        ASSERT_EQ(sqlite3_open(file.c_str(), &database), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(database, statements, nullptr, nullptr, nullptr), SQLITE_OK)
            << sqlite3_errmsg(database);
        sqlite3_close(database);
    }

    const test::TempPrefix prefix;
    const fs::path file = prefix.Path() / "registry.db";
};

TEST_F(RegistryTest, EveryTypeAndSizeComesBackInAnyProcess)
{
    struct Value {
        LPCTSTR Name;
        DWORD Type;
        std::string Bytes;
    };
    const Value values[] = {
        {_T("text"), REG_SZ, "C\0:\0\0\0"s},
        {_T("expanded"), REG_EXPAND_SZ, "odd"},
        {_T("nothing"), REG_SZ, ""},
        {_T("bytes"), REG_BINARY, "\0\xFF\0"s},
        {_T(""), 77, std::string(bufferSize, 'x')}, // the value without a name, of a type that nobody knows
        {_T("\xD800\u00C4"), REG_BINARY, std::string(1 << 20, 'y')},
    };
    EXPECT_EQ(test::RunInChild([&] {
                  Key key;
                  if (Key::Create(keyName, key) != ERROR_SUCCESS)
                      return 1;
                  for (const Value& value : values) {
                      if (key.Set("before", value.Name) != ERROR_SUCCESS ||
                          key.Set(value.Bytes, value.Name, value.Type) != ERROR_SUCCESS)
                          return 2;
                  }
                  return 0;
              }),
              0);
    Key key;
    ASSERT_EQ(Key::Open(keyName, key), ERROR_SUCCESS);
    for (const Value& value : values) {
        const auto size = static_cast<DWORD>(value.Bytes.size());
        DWORD type = 0;
        EXPECT_EQ(key.Get(value.Name, size, &type), value.Bytes);
        EXPECT_EQ(type, value.Type);
        EXPECT_EQ(key.Get(value.Name, size + 1), value.Bytes);
        if (size > 0) {
            EXPECT_EQ(key.Get(value.Name, size - 1), "error 234 " + std::to_string(size));
            EXPECT_EQ(key.Get(value.Name, 0), "error 234 " + std::to_string(size));
        }
    }
}

TEST_F(RegistryTest, FindsKeysAndNamesWithoutRegardToTheCaseOfAToZ)
{
    Key missing;
    EXPECT_EQ(Key::Open(keyName, missing), ERROR_FILE_NOT_FOUND);
    EXPECT_FALSE(fs::exists(file)) << "opening creates nothing";
    Key created;
    ASSERT_EQ(Key::Create(_T("Software\\H\u00C4lvorn"), created), ERROR_SUCCESS);
    EXPECT_EQ(created.Set("1"), ERROR_SUCCESS);
    for (LPCTSTR const same : {_T("software\\h\u00C4LVORN"), _T("\\SOFTWARE\\\\H\u00C4lvorn\\")}) {
        Key key;
        ASSERT_EQ(Key::Create(same, key), ERROR_SUCCESS);
        EXPECT_EQ(key.Get(_T("STYLEatlas")), "1");
    }
    Key above;
    EXPECT_EQ(Key::Open(_T("SOFTWARE"), above), ERROR_SUCCESS);
    EXPECT_EQ(above.Get(), "error 2") << "a value belongs to one key";
    for (LPCTSTR const other : {_T("Software\\H\u00E4lvorn"), _T("Soft"), _T("Software\\H\u00C4lvorn\\x"), _T("Software/x")})
        EXPECT_EQ(Key::Open(other, missing), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(created.Get(_T("Style")), "error 2");
}

TEST_F(RegistryTest, HandlesAndAccessAreTold)
{
    const Key null;
    EXPECT_EQ(null.Get(), "error 6");
    EXPECT_EQ(null.Set("x"), ERROR_INVALID_HANDLE);
    EXPECT_EQ(RegCloseKey(nullptr), ERROR_INVALID_HANDLE);
    HKEY key = nullptr;
    EXPECT_EQ(RegOpenKeyExW(nullptr, keyName, 0, fullAccess, &key), ERROR_INVALID_HANDLE);
    EXPECT_EQ(key, nullptr);

    Key written;
    ASSERT_EQ(Key::Create(keyName, written, KEY_WRITE), ERROR_SUCCESS);
    EXPECT_EQ(written.Set("1"), ERROR_SUCCESS);
    EXPECT_EQ(written.Get(), "error 5");
    Key read;
    ASSERT_EQ(Key::Open(keyName, read, KEY_READ), ERROR_SUCCESS);
    EXPECT_EQ(read.Set("2"), ERROR_ACCESS_DENIED);
    EXPECT_EQ(read.Get(), "1");
}

// A key name comes from the host's caller: one of thousands of levels must not cost the square of that in memory.
TEST_F(RegistryTest, APathBeyondAllLevelsIsRefusedAtOnce)
{
    std::u16string path;
    for (int i = 0; i < 30'000; ++i)
        path += u"a\\";
    EXPECT_EQ(test::RunInChild([&] {
                  const long before = PeakMemory();
                  Key key;
                  if (Key::Open(path.c_str(), key) != ERROR_INVALID_PARAMETER ||
                      Key::Create(path.c_str(), key) != ERROR_INVALID_PARAMETER)
                      return 1;
                  return PeakMemory() - before < mostMemory ? 0 : 2;
              }),
              0);
    EXPECT_FALSE(fs::exists(file));
    Key deep;
    EXPECT_EQ(Key::Create(path.substr(0, 2 * 500).c_str(), deep), ERROR_SUCCESS);
}

TEST_F(RegistryTest, WhatIsNoRegistryIsToldAndLeftAsItIs)
{
    const std::string garbage(10'000, 'g');
    test::WriteWhole(file, garbage);
    EXPECT_NE(UseAsHost(), ERROR_SUCCESS);
    EXPECT_EQ(test::ReadWhole(file), garbage);
    fs::remove(file);
    fs::create_directory(file);
    EXPECT_NE(UseAsHost(), ERROR_SUCCESS);
    fs::remove(file);
    ASSERT_EQ(mkfifo(file.c_str(), 0600), 0);
    EXPECT_EQ(test::RunInChild([] { return UseAsHost() != ERROR_SUCCESS ? 0 : 1; }), 0);
    fs::remove(file);
    ExecuteInDatabase("CREATE TABLE key(x); CREATE TABLE value(x)");
    EXPECT_NE(UseAsHost(), ERROR_SUCCESS);
    fs::remove(file);
    test::WriteWhole(file, "");
    EXPECT_EQ(UseAsHost(), ERROR_SUCCESS) << "an empty file is a registry that nobody has written to";
}

// The tables of a strange file can be computed ones: of another size each time, or of one that fills the memory.
TEST_F(RegistryTest, AComputedValueNeitherFillsTheMemoryNorOverrunsIt)
{
    constexpr const char* values[] = {
        "CREATE VIEW value AS SELECT id key, 'styleatlas' folded, 1 type, randomblob(1 + abs(random()) % 2000) data "
        "FROM key",
        "CREATE TABLE value(key, folded, type, data AS (hex(zeroblob(200000000))));"
        "INSERT INTO value SELECT id, 'styleatlas', 1 FROM key",
        "CREATE VIEW value AS WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) "
        "SELECT i key, 'styleatlas' folded, 1 type, 'x' data FROM n WHERE length(randomblob(1000000)) < 0",
        "CREATE TABLE value(key, folded, type, data); "
        "INSERT INTO value SELECT id, 'styleatlas', 1, '\u00C4\u00C4' FROM key",
    };
    for (const char* const value : values) {
        fs::remove(file);
        ASSERT_EQ(UseAsHost(), ERROR_SUCCESS);
        ExecuteInDatabase(("DROP TABLE value;"s + value).c_str());
        EXPECT_EQ(test::RunInChild([] {
                      const long before = PeakMemory();
                      for (int i = 0; i < 100; ++i) {
                          Key key;
                          if (Key::Open(keyName, key) != ERROR_SUCCESS)
                              return 1;
                          if (!key.Get().starts_with("error"))
                              return 2;
                      }
                      return PeakMemory() - before < mostMemory ? 0 : 3;
                  }),
                  0)
            << value;
    }
}

TEST_F(RegistryTest, ADamagedFileBringsNobodyDown)
{
    ASSERT_EQ(UseAsHost(std::string(bufferSize, 'v')), ERROR_SUCCESS);
    const std::string whole = test::ReadWhole(file);
    ASSERT_EQ(whole.size() % 512, 0U);
    int refused = 0;
    for (std::size_t length = 512; length < whole.size(); length += 512) {
        test::WriteWhole(file, whole.substr(0, length));
        refused += UseAsHost() != ERROR_SUCCESS ? 1 : 0;
    }
    EXPECT_GT(refused, 0);
    std::minstd_rand random(1);
    for (int round = 0; round < 150; ++round) {
        std::string damaged = whole;
        for (int i = 0; i < 8; ++i)
            damaged[random() % damaged.size()] = static_cast<char>(random());
        test::WriteWhole(file, damaged);
        static_cast<void>(UseAsHost());
    }
}

TEST_F(RegistryTest, AFileThatMayNotBeWrittenIsTold)
{
    ASSERT_EQ(UseAsHost("before"), ERROR_SUCCESS);
    for (const fs::path& path : {file, prefix.Path()})
        ASSERT_TRUE(test::GiveToOrdinaryUser(path.c_str()));
    const auto use = [] { return test::BecomeOrdinaryUser() ? static_cast<int>(UseAsHost("after")) : 99; };
    fs::permissions(file, fs::perms{0444});
    EXPECT_EQ(test::RunInChild(use), ERROR_ACCESS_DENIED);
    fs::permissions(file, fs::perms{0644});
    fs::permissions(prefix.Path(), fs::perms{0555});
    EXPECT_NE(test::RunInChild(use), ERROR_SUCCESS) << "no room for a journal";
    fs::permissions(prefix.Path(), fs::perms{0755});
    Key key;
    ASSERT_EQ(Key::Open(keyName, key), ERROR_SUCCESS);
    EXPECT_EQ(key.Get(), "before");
}

TEST_F(RegistryTest, ProcessesThatCreateAndWriteAtOnceAllSucceed)
{
    constexpr int rounds = 12;
    for (int round = 0; round < rounds; ++round) {
        fs::remove(file);
        std::vector<std::unique_ptr<test::ChildProcess>> children;
        for (int writer = 0; writer < 4; ++writer) {
            children.push_back(std::make_unique<test::ChildProcess>([writer] {
                const TCHAR own[] = {static_cast<TCHAR>(u'a' + writer), 0};
                for (int i = 0; i < 3; ++i) {
                    Key key;
                    if (Key::Create(keyName, key) != ERROR_SUCCESS)
                        return 1;
                    if (key.Set(std::to_string(i), own) != ERROR_SUCCESS || key.Set("x") != ERROR_SUCCESS)
                        return 2;
                    if (key.Get(own) != std::to_string(i) || key.Get() != "x")
                        return 3;
                }
                return 0;
            }));
        }
        for (const auto& child : children)
            ASSERT_EQ(child->Wait(), 0) << "in round " << round;
    }
}

TEST_F(RegistryTest, WaitsForTheLockOfAnother)
{
    constexpr useconds_t held = 300'000; // microseconds
    ASSERT_EQ(UseAsHost("before"), ERROR_SUCCESS);
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    test::ChildProcess holder([&] {
        sqlite3* database = nullptr;
        sqlite3_open(file.c_str(), &database);
        const bool isLocked = sqlite3_exec(database, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr) == SQLITE_OK;
        const bool isTold = write(ready[1], "", 1) == 1;
        usleep(held);
        return isLocked && isTold ? 0 : 1;
    });
    char told = 0;
    ASSERT_EQ(read(ready[0], &told, 1), 1);
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_EQ(UseAsHost("after"), ERROR_SUCCESS);
    EXPECT_GT(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(100));
    EXPECT_EQ(holder.Wait(), 0);
    for (const int end : ready)
        close(end);
}

TEST_F(RegistryTest, AFileThatMayNotGrowKeepsItsValuesAndTheHost)
{
    ASSERT_EQ(UseAsHost("before"), ERROR_SUCCESS);
    for (const rlim_t room : {rlim_t{0}, rlim_t{600}, rlim_t{8192}, fs::file_size(file)}) {
        EXPECT_EQ(test::RunInChild([room] {
                      Key key;
                      if (Key::Open(keyName, key) != ERROR_SUCCESS || !test::LimitFileSize(room))
                          return 1;
                      if (key.Set(std::string(100'000, 'x')) == ERROR_SUCCESS)
                          return 2;
                      return key.Get() == "before" ? 0 : 3;
                  }),
                  0)
            << room;
        Key key;
        ASSERT_EQ(Key::Open(keyName, key), ERROR_SUCCESS);
        EXPECT_EQ(key.Get(), "before");
    }
    EXPECT_EQ(test::RunInChild([this] { return fs::remove(file) && test::LimitFileSize(0) && UseAsHost() != 0 ? 0 : 1; }),
              0);
    EXPECT_EQ(UseAsHost(), ERROR_SUCCESS);
}

} // namespace
