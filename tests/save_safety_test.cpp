// Saving: whatever happens, the file holds the complete old or new contents.
#include "support/ChildProcess.h"
#include "support/ScriptedModel.h"
#include "support/TempPrefix.h"

#include <afxpriv.h>

#include <random>
#include <sys/stat.h>

#include <gtest/gtest.h>

namespace
{

namespace fs = std::filesystem;

constexpr const TCHAR* drivePath = _T("C:\\layouts\\file");
constexpr std::size_t contentsSize = 300'000;
constexpr rlim_t littleRoom = 100'000;

std::string Contents(char letter)
{
    return std::string(contentsSize, letter);
}

bool IsWhole(const std::string& contents)
{
    return contents == Contents(contents[0]);
}

enum Outcome { saved, refused, diskFull, otherFailure, notTried, leftOpen };

// Saves as the model does.
Outcome Save(LPCTSTR path, const std::string& contents)
{
    const int next = test::NextDescriptor();
    try {
        CMirrorFile file;
        if (!file.Open(path, CFile::modeCreate | CFile::modeWrite))
            return refused;
        CArchive ar(&file, CArchive::store | CArchive::bNoFlushOnDelete);
        for (const char c : contents)
            ar << static_cast<BYTE>(c);
        ar.Close();
        file.Close();
        return test::NextDescriptor() == next ? saved : leftOpen;
    } catch (CFileException* e) {
        const bool isFull = e->m_cause == CFileException::diskFull;
        e->Delete();
        return test::NextDescriptor() != next ? leftOpen : isFull ? diskFull : otherFailure;
    }
}

class SaveTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        fs::permissions(prefix.Path(), fs::perms{0755}); // accessible to another user
        test::WriteWhole(file, "old");
    }

    unsigned Mode() const { return static_cast<unsigned>(fs::status(file).permissions()); }

    static int SaveAsOrdinaryUser(LPCTSTR path, const std::string& contents)
    {
        return test::RunInChild([&] { return test::BecomeOrdinaryUser() ? Save(path, contents) : notTried; });
    }

    const test::TempPrefix prefix;
    const fs::path folder = prefix.MakeFolder("layouts");
    const fs::path file = folder / "file";
    const fs::path previous = folder / "file~";
};

TEST_F(SaveTest, AKilledWriterLeavesOldOrNewContentsAndNothingToTheNext)
{
    constexpr int rounds = 200;
    constexpr int maxLifetime = 4000; // microseconds
    std::minstd_rand random(1);
    ASSERT_EQ(Save(drivePath, Contents('a')), saved);
    int leftovers = 0;
    for (int round = 0; round < rounds; ++round) {
        test::ChildProcess writer([] {
            for (char letter = 'a';; letter = letter == 'z' ? 'a' : static_cast<char>(letter + 1)) {
                if (Save(drivePath, Contents(letter)) != saved)
                    return 1;
            }
        });
        usleep(random() % maxLifetime);
        writer.Kill();
        ASSERT_TRUE(IsWhole(test::ReadWhole(file))) << "in round " << round;
        leftovers += test::EntryCount(folder) > 2 ? 1 : 0;
        ASSERT_EQ(Save(drivePath, Contents('A')), saved);
        ASSERT_TRUE(IsWhole(test::ReadWhole(previous))) << "in round " << round;
        ASSERT_EQ(test::EntryCount(folder), 2) << "in round " << round;
    }
    EXPECT_GT(leftovers, 0) << "no writer was killed at its work";
}

TEST_F(SaveTest, TwoWritersAtOnceShowWholeContentsAtAnyTime)
{
    const auto write = [](char letter) {
        for (int i = 0; i < 40; ++i) {
            if (Save(drivePath, Contents(letter)) != saved)
                return 1;
        }
        return 0;
    };
    ASSERT_EQ(Save(drivePath, Contents('a')), saved);
    test::ChildProcess first([&] { return write('b'); });
    test::ChildProcess second([&] { return write('c'); });
    for (int i = 0; i < 200; ++i)
        ASSERT_TRUE(IsWhole(test::ReadWhole(file))) << i;
    EXPECT_EQ(first.Wait(), 0);
    EXPECT_EQ(second.Wait(), 0);
    ASSERT_EQ(Save(drivePath, Contents('d')), saved);
    EXPECT_TRUE(IsWhole(test::ReadWhole(previous)));
    EXPECT_EQ(test::EntryCount(folder), 2);
}

TEST_F(SaveTest, TheFileBeforeItIsKeptAndNoOther)
{
    for (const std::string contents : {"first", "second", "third"}) {
        const std::string before = test::ReadWhole(file);
        EXPECT_EQ(Save(drivePath, contents), saved);
        EXPECT_EQ(test::ReadWhole(file), contents);
        EXPECT_EQ(test::ReadWhole(previous), before);
        EXPECT_EQ(fs::hard_link_count(previous), 1U);
    }
    EXPECT_EQ(test::EntryCount(folder), 2);
    // A writer killed between link and rename.
    EXPECT_TRUE(fs::remove(previous));
    fs::create_hard_link(file, previous);
    EXPECT_EQ(Save(drivePath, "fourth"), saved);
    EXPECT_EQ(test::ReadWhole(previous), "third");
}

TEST_F(SaveTest, AFileWithOtherNamesKeepsThem)
{
    fs::create_hard_link(file, folder / "other");
    fs::permissions(file, fs::perms{0640});
    EXPECT_EQ(Save(drivePath, Contents('n')), saved);
    EXPECT_EQ(fs::status(previous).permissions(), fs::perms{0640});
    EXPECT_EQ(test::ReadWhole(folder / "other"), Contents('n'));
    EXPECT_EQ(test::ReadWhole(previous), "old");
    EXPECT_EQ(Save(drivePath, "short"), saved);
    EXPECT_EQ(test::ReadWhole(folder / "other"), "short");
    const auto saveMore = [] {
        return test::LimitFileSize(littleRoom) ? Save(drivePath, Contents('m')) : notTried;
    };
    EXPECT_EQ(test::RunInChild(saveMore), diskFull);
    EXPECT_EQ(test::ReadWhole(file), "short");
    EXPECT_TRUE(fs::remove(previous) && fs::create_directory(previous)); // which no copy can replace
    EXPECT_EQ(Save(drivePath, "last"), saved);
    EXPECT_EQ(test::EntryCount(folder), 3);
}

TEST_F(SaveTest, AFullDiskIsReportedAndTheOldFileKept)
{
    const auto saveAtlas = [] {
        k_StyleAtlas atlas;
        test::SetUnits(test::SingleQuantities(200));
        atlas.BuildCatalogue();
        try {
            return test::LimitFileSize(littleRoom) && atlas.Save(drivePath) ? saved : notTried;
        } catch (CFileException* e) {
            const bool isKept = e->m_cause == CFileException::diskFull && atlas.FilePath.IsEmpty();
            return isKept ? diskFull : otherFailure;
        }
    };
    EXPECT_EQ(test::RunInChild(saveAtlas), diskFull);
    EXPECT_EQ(Save(_T("/dev/full"), "x"), diskFull);
    EXPECT_EQ(Save(_T("/dev/null"), "x"), saved);
    EXPECT_EQ(test::ReadWhole(file), "old");
    EXPECT_EQ(test::EntryCount(folder), 1);
}

TEST_F(SaveTest, LinksStayAndTheirTargetIsReplaced)
{
    const fs::path links = prefix.MakeFolder("links");
    fs::create_directory_symlink("../layouts", links / "folder");
    const std::pair<std::string, fs::path> targets[] = {{"absolute", file},
                                                        {"relative", "../layouts/file"},
                                                        {"chained", "relative"},
                                                        {"winding", "folder/../links/absolute"},
                                                        {"dangling", "folder/missing"}};
    for (const auto& [name, target] : targets) {
        fs::create_symlink(target, links / name);
        EXPECT_EQ(Save((u"C:\\links\\" + std::u16string(name.begin(), name.end())).c_str(), name), saved);
        EXPECT_TRUE(fs::is_symlink(links / name)) << name;
        EXPECT_EQ(test::ReadWhole(name == "dangling" ? folder / "missing" : file), name);
    }
    EXPECT_EQ(test::EntryCount(folder), 3);
    if (geteuid() != 0)
        GTEST_SKIP() << "the rest needs two users";
    fs::permissions(links, fs::perms{01777});
    EXPECT_EQ(lchown((links / "absolute").c_str(), test::userWithoutRights, 0), 0);
    for (const TCHAR* const path : {_T("C:\\links\\absolute"), _T("C:\\links\\winding")})
        EXPECT_EQ(Save(path, "x"), otherFailure) << "another user may have made the link";
    EXPECT_EQ(test::ReadWhole(file), "winding");
}

TEST_F(SaveTest, WhatCannotBeReplacedIsRefused)
{
    fs::create_symlink("loop", folder / "loop");
    fs::create_symlink("missing/file", folder / "astray");
    const auto before = test::EntryCount(folder);
    const std::u16string tooLong = std::u16string(drivePath).append(300, u'x');
    for (const TCHAR* const path : {_T(""), _T("C:\\layouts\\loop"), _T("C:\\layouts\\astray"),
                                    _T("C:\\missing\\file"), _T("C:\\layouts\\file\\x"), tooLong.c_str()})
        EXPECT_EQ(Save(path, "new"), refused) << ::testing::PrintToString(std::u16string(path));
    EXPECT_EQ(Save(_T("C:\\layouts"), "new"), otherFailure) << "a folder";
    EXPECT_EQ(test::RunInChild([] {
                  const rlimit none{0, 0};
                  return setrlimit(RLIMIT_NOFILE, &none) == 0 ? Save(drivePath, "new") : notTried;
              }),
              otherFailure);
    fs::permissions(file, fs::perms{0444});
    ASSERT_TRUE(test::GiveToOrdinaryUser(file.c_str()) && test::GiveToOrdinaryUser(folder.c_str()));
    EXPECT_EQ(SaveAsOrdinaryUser(drivePath, "new"), otherFailure) << "a file that is read-only";
    EXPECT_EQ(test::ReadWhole(file), "old");
    EXPECT_EQ(test::EntryCount(folder), before);
}

TEST_F(SaveTest, PermissionsStayWhateverTheMask)
{
    for (const mode_t mask : {0000, 0077}) {
        const mode_t maskBefore = umask(mask);
        for (const unsigned mode : {0600U, 0664U, 0755U}) {
            fs::permissions(file, fs::perms{mode});
            EXPECT_EQ(Save(drivePath, "new"), saved);
            EXPECT_EQ(Mode(), mode);
        }
        fs::remove(file);
        EXPECT_EQ(Save(drivePath, "new"), saved);
        EXPECT_EQ(Mode(), 0666U & ~mask) << "of a new file";
        umask(maskBefore);
    }
}

// A folder may allow no new file, or no replacement of another user's, while the file itself is writable.
TEST_F(SaveTest, AFolderThatRefusesTheNewFileGetsItsFileWritten)
{
    ASSERT_TRUE(test::GiveToOrdinaryUser(file.c_str()));
    fs::permissions(folder, fs::perms{0555});
    EXPECT_EQ(SaveAsOrdinaryUser(drivePath, "first"), saved);
    EXPECT_EQ(test::ReadWhole(file), "first");
    EXPECT_EQ(SaveAsOrdinaryUser(_T("C:\\layouts\\other"), "x"), otherFailure);
    fs::permissions(folder, fs::perms{01777});
    if (geteuid() != 0)
        GTEST_SKIP() << "the rest needs two users";
    const auto saveOver = [this](unsigned mode, uid_t owner) {
        fs::permissions(file, fs::perms{mode});
        EXPECT_EQ(chown(file.c_str(), owner, 0), 0);
        const std::string before = test::ReadWhole(file);
        EXPECT_EQ(SaveAsOrdinaryUser(drivePath, "another"), saved);
        EXPECT_EQ(test::ReadWhole(previous), before);
        EXPECT_EQ(test::ReadWhole(file), "another");
        EXPECT_EQ(test::EntryCount(folder), 2);
    };
    saveOver(0666, 0);
    saveOver(0640, test::userWithoutRights);
    EXPECT_EQ(Mode(), 0640U);
    EXPECT_EQ(static_cast<unsigned>(fs::status(previous).permissions()), 0600U)
        << "the group can't stay, and what it was allowed is no other group's";
}

} // namespace
