// Fails every allocation, and every call of the system and the database, one after the other: nothing crashes
// or leaks, no file or setting is lost, and the table can be loaded again. Replaces operator new.
#include "support/ChildProcess.h"
#include "support/LayoutBytes.h"
#include "support/MessageRecorder.h"
#include "support/RegistryKey.h"
#include "support/ScriptedModel.h"
#include "support/TempPrefix.h"

#include <model/Host.h>

#include <algorithm>
#include <gtest/gtest.h>
#include <malloc.h>
#include <new>
#include <sqlite3.h>

extern "C" {
extern long systemCallsLeft;
extern long databaseCallsLeft;
extern int systemFailure;
}

namespace
{

// The number of allocations before one fails; negative for none.
long allocationsLeft = -1;

std::size_t bytesInUse = 0;

void* Allocate(std::size_t size, std::size_t alignment = alignof(std::max_align_t)) noexcept
{
    if (allocationsLeft >= 0 && allocationsLeft-- == 0)
        return nullptr;
    void* const memory = std::aligned_alloc(alignment, (size / alignment + 1) * alignment);
    bytesInUse += malloc_usable_size(memory);
    return memory;
}

void Free(void* memory)
{
    bytesInUse -= malloc_usable_size(memory);
    std::free(memory);
}

// The database's allocations count too, even small ones from its own pools.
sqlite3_mem_methods databaseMemory;
const bool databaseIsCounted = [] {
    sqlite3_config(SQLITE_CONFIG_GETMALLOC, &databaseMemory);
    sqlite3_mem_methods counted = databaseMemory;
    static constexpr auto fails = [] { return allocationsLeft >= 0 && allocationsLeft-- == 0; };
    counted.xMalloc = [](int size) { return fails() ? nullptr : databaseMemory.xMalloc(size); };
    counted.xRealloc = [](void* old, int size) {
        return fails() ? nullptr : databaseMemory.xRealloc(old, size);
    };
    return (sqlite3_config(SQLITE_CONFIG_MALLOC, &counted) | sqlite3_config(SQLITE_CONFIG_LOOKASIDE, 0, 0)) ==
           SQLITE_OK;
}();

} // namespace

void* operator new(std::size_t size)
{
    void* const memory = Allocate(size);
    if (memory == nullptr)
        throw std::bad_alloc();
    return memory;
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    return Allocate(size);
}
void* operator new(std::size_t size, std::align_val_t alignment, const std::nothrow_t&) noexcept
{
    return Allocate(size, static_cast<std::size_t>(alignment));
}
void operator delete(void* memory) noexcept
{
    Free(memory);
}
void operator delete(void* memory, std::size_t) noexcept
{
    Free(memory);
}
void operator delete(void* memory, std::align_val_t) noexcept
{
    Free(memory);
}

namespace
{

constexpr const TCHAR* layout = _T("C:\\Style.Atlas");
constexpr INT_PTR lastRow = 4; // of the catalogue
constexpr short storedWidth = 7;

class AllocationFailure : public testing::Test
{
protected:
    AllocationFailure()
    {
        test::SetUnits({{0, 1, 1, 0, 0}, {0, 1, 2, 0, 0}, {0, 1, 2, 1, 0}, {0, 2, 0, 0, 0}});
        g_ApplicationName = _T("Bench");
        m_prefix.MakeFolder();
        m_atlas.ColumnCount = 2;
        m_atlas.BuildCatalogue();
        m_atlas.GetRowStyle(lastRow, 0)->LineWidth = storedWidth;
        m_atlas.Save(layout);
        for (const TCHAR* const key : {_T("S-1\\key"), _T("key")}) {
            m_atlas.RegistryPath = key;
            m_atlas.SetFilePath(layout);
        }
        m_stored = test::ReadWhole(m_file);
        m_settings = Settings();
    }
    ~AllocationFailure() override { g_ApplicationName.Empty(); }

    // All values of the registry, read without the layer, which records what is read through it.
    std::string Settings() const
    {
        std::string settings;
        sqlite3* database = nullptr;
        sqlite3_open((m_prefix.Path() / "registry.db").c_str(), &database);
        const auto append = [](void* all, int, char** columns, char**) {
            *static_cast<std::string*>(all) += std::string(columns[0]) + '\n';
            return 0;
        };
        sqlite3_exec(database, "SELECT path || ' ' || hex(data) FROM value JOIN key ON key = id ORDER BY 1",
                     append, &settings, nullptr);
        sqlite3_close(database);
        return settings;
    }

    // Lets each allocation or call fail in turn, and checks. Only the framework's exceptions may escape.
    template <class Operation, class Check> long FailEach(long& left, Operation operation, Check check)
    {
        for (long failures = 0;; ++failures) {
            left = failures;
            try {
                operation();
            } catch (CException* e) {
                e->Delete();
            }
            const bool ranOut = left < 0;
            left = -1;
            if (!ranOut)
                return failures;
            check(failures);
            if (HasFatalFailure() || Settings() != m_settings) {
                ADD_FAILURE() << "after " << failures << '\n' << Settings();
                return failures;
            }
        }
    }

    template <class Operation> void FailEach(Operation operation)
    {
        const auto check = [this](long failures) {
            ASSERT_EQ(test::ReadWhole(m_file), m_stored) << failures;
        };
        for (long* const left : {&allocationsLeft, &databaseCallsLeft})
            EXPECT_GT(FailEach(*left, operation, check), left == &allocationsLeft ? 3 : -1);
        for (systemFailure = EIO; systemFailure != 0; systemFailure = systemFailure == EIO ? EMFILE : 0)
            FailEach(systemCallsLeft, operation, check);
        m_atlas.RegistryPath = _T("key");
        EXPECT_EQ(m_atlas.Load({}), 0);
        EXPECT_EQ(test::BytesOf(m_atlas), m_stored);
    }

    // The calls of a host.
    void SetApplication()
    {
        m_atlas.SetRegistryPath(_T("key"));
        m_atlas.Load({});
    }
    void ChangeUser() { m_atlas.ChangeUserInfo(_T("S-1"), _T("key")); }

    test::TempPrefix m_prefix;
    const std::filesystem::path m_file = m_prefix.Native("Style.Atlas");
    test::MessageRecorder m_messages;
    k_StyleAtlas m_atlas;
    std::string m_stored;
    std::string m_settings;
};

TEST_F(AllocationFailure, WhileLoadingSavingAndCopying)
{
    EXPECT_TRUE(databaseIsCounted);
    FailEach([this] {
        const bool isLoaded = m_atlas.Load({}) == 0;
        EXPECT_TRUE(!isLoaded || m_atlas.GetRowStyle(lastRow, 0)->LineWidth == storedWidth);
    });
    FailEach([this] { SetApplication(); });
    FailEach([this] { ChangeUser(); });
    FailEach([this] {
        m_atlas.Load(_T("C:\\none"));
        EXPECT_EQ(m_atlas.Rows.GetSize(), lastRow + 1);
    });
    FailEach([this] { m_atlas.Save(layout); });
#if defined(__SANITIZE_ADDRESS__)
    constexpr WORD rows = 70; // each has memory of its own
#else
    constexpr WORD rows = 3000; // more than a block of their memory holds
#endif
    const auto addRows = [](k_StyleAtlas& atlas) {
        for (WORD quantity = 0; quantity < rows; ++quantity)
            atlas.AddRow({quantity, 0, 0, 0, 0}, 0);
    };
    FailEach([&addRows] {
        k_StyleAtlas large;
        addRows(large);
    });
    addRows(m_atlas);
    const std::string all = test::BytesOf(m_atlas);
    k_StyleAtlas copy;
    m_atlas.UnreadFiles = {layout};
    FailEach([&] {
        copy.Assign(m_atlas);
        EXPECT_EQ(copy.UnreadFiles.size(), 1U);
    });
    EXPECT_EQ(test::BytesOf(copy), all);
}

TEST_F(AllocationFailure, AnOpeningThatThrowsIsToldAndEndsTheSave)
{
    const CString path = layout;
    for (long* const left : {&allocationsLeft, &systemCallsLeft}) {
        *left = left == &allocationsLeft ? 0 : 2; // the folder is listed twice before
        systemFailure = EMFILE;
        std::filesystem::remove(m_file);
        EXPECT_FALSE(m_atlas.Save(path));
        *left = -1;
        EXPECT_FALSE(std::filesystem::exists(m_file));
    }
    EXPECT_EQ(m_messages.Messages(),
              std::vector(2, test::Message{u"Cannot save style atlas", u"Error", MB_ICONEXCLAMATION}));
}

// A file with two names is written in place; an unreadable one is kept, too.
TEST_F(AllocationFailure, ASaveLeavesTheOldFileOrTheNewOneWhole)
{
    const std::string old = "damaged " + m_stored;
    const auto inFolder = [this](std::string_view bytes) {
        const std::filesystem::directory_iterator files(m_prefix.Native());
        return std::any_of(begin(files), end(files),
                           [bytes](const auto& file) { return test::ReadWhole(file) == bytes; });
    };
    for (const bool isLinked : {false, true}) {
        for (const bool isUnread : {false, true}) {
            for (const int error : {EIO, ENOSPC, EBUSY}) { // the last: of a mount point
                systemFailure = error;
                const auto prepare = [&] {
                    std::filesystem::remove_all(m_prefix.Native());
                    m_prefix.MakeFolder();
                    test::WriteWhole(m_file, old);
                    if (isLinked)
                        std::filesystem::create_hard_link(m_file, m_prefix.Native("other"));
                    m_atlas.UnreadFiles = {isUnread ? CString(layout) : CString()};
                };
                prepare();
                const long failures = FailEach(
                    systemCallsLeft, [this] { m_atlas.Save(layout); },
                    [&](long failure) {
                        const std::string now = test::ReadWhole(m_file);
                        ASSERT_TRUE(now == old || now == m_stored) << failure << ": " << now.size();
                        ASSERT_TRUE(!isUnread || inFolder(old)) << failure;
                        prepare();
                    });
                EXPECT_GT(failures, 6);
                EXPECT_EQ(test::ReadWhole(m_file), m_stored);
                EXPECT_EQ(test::ReadWhole(m_file.string() + '~'), old);
                EXPECT_EQ(test::EntryCount(m_prefix.Native()), 2 + isLinked + isUnread);
            }
        }
    }
}

// Another process locks the database: for longer than a call waits, then for moments.
TEST_F(AllocationFailure, ADatabaseThatIsBusyForATimeKeepsItsValues)
{
    test::ChildProcess holder([this] {
        sqlite3* database = nullptr;
        if (sqlite3_open((m_prefix.Path() / "registry.db").c_str(), &database) != SQLITE_OK)
            return 1;
        for (int moment = 0; moment < 40; ++moment) {
            sqlite3_exec(database, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr);
            usleep(moment == 0 ? 2'600'000U : 40'000U + 30'000U * static_cast<unsigned>(moment % 4));
            sqlite3_exec(database, "COMMIT", nullptr, nullptr, nullptr);
            usleep(5000U * static_cast<unsigned>(moment % 5));
        }
        return 0;
    });
    usleep(100'000);
    for (int i = 0; i < 60; ++i) {
        SetApplication();
        m_atlas.Load({});
        ChangeUser();
        const std::string now = Settings(); // empty while the database is locked
        ASSERT_TRUE(now.empty() || now == m_settings) << now;
    }
    EXPECT_EQ(holder.Wait(), 0);
    EXPECT_EQ(Settings(), m_settings);
    SetApplication();
    EXPECT_EQ(m_atlas.FilePath, layout);
}

TEST_F(AllocationFailure, WhatIsDoneAgainTakesNoMoreMemory)
{
    const std::string damaged = m_stored.substr(0, m_stored.size() - 1);
    test::WriteWhole(m_prefix.Native("damaged"), damaged);
    m_prefix.MakeFolder("folder");
    k_StyleAtlas copy;
    const auto work = [&] {
        const test::MessageRecorder messages;
        for (const TCHAR* const path : {_T("C:\\damaged"), _T("C:\\none"), _T("C:\\folder"), _T("")})
            m_atlas.Load(path);
        k_StyleAtlas large; // more records than a block of their memory holds
        for (WORD quantity = 0; quantity < 70; ++quantity)
            large.AddRow({quantity, 0, 0, 0, 0}, 0);
        copy.Assign(large);
        copy.Assign(m_atlas);
        copy.Assign(std::move(large));
        copy.Clear();
        k_StyleAtlas().Assign(m_atlas);
        m_atlas.Save(_T("C:\\folder"));
        for (long call = 0; call < 4; ++call) {
            systemCallsLeft = call;
            m_atlas.Load(layout);
        }
        systemCallsLeft = -1;
        m_atlas.Clear(); // and with it all records
        ChangeUser();
        SetApplication();
    };
    constexpr std::size_t tolerance = 200; // for texts of other lengths
    std::size_t afterTwo = 0;
    for (int round = 1; round <= 20; ++round) {
        work();
        if (round == 2)
            afterTwo = bytesInUse;
    }
    EXPECT_LE(bytesInUse, afterTwo + tolerance);
    m_atlas.Load(layout);
    for (int round = 0; round < 1000; ++round) { // to more than a block of rows and records
        test::ReadInto(m_atlas, m_stored);
        k_StyleAtlas first, second;
        first.Assign(m_atlas);
        second.Assign(m_atlas);
        copy.Assign(std::move(first));
    }
    copy.Clear();
    EXPECT_LE(bytesInUse, afterTwo + 2 * tolerance);
}

// The user's choice isn't a value made up after a failed read: it is stored as soon as the lock is released.
TEST_F(AllocationFailure, AChoiceAfterAFailedLookIsKept)
{
    for (long call = 6; call >= 0; --call) {
        databaseCallsLeft = call;
        m_atlas.Load({});
        databaseCallsLeft = -1;
        EXPECT_NE(m_atlas.FilePath, layout);
        test::RegistryKey other;
        EXPECT_TRUE(other.Open(_T("S-1\\key")) == ERROR_SUCCESS && !other.Get().empty());
        m_atlas.SetRegistryPath(_T("S-1\\key")); // writes a path, but none that was made up
        EXPECT_EQ(Settings(), m_settings) << call;
        SetApplication();
        EXPECT_EQ(m_atlas.FilePath, layout);
    }
    databaseCallsLeft = 0;
    m_atlas.Load({});
    databaseCallsLeft = -1;
    m_atlas.SetFilePath(_T("C:\\mine"));
    SetApplication();
    EXPECT_EQ(m_atlas.FilePath, _T("C:\\mine"));
}

} // namespace
