// Files and archives: every byte in its place, and no file that blocks the host.
#include "support/ChildProcess.h"
#include "support/TempPrefix.h"

#include <afxpriv.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <tuple>

#include <gtest/gtest.h>

namespace
{

namespace fs = std::filesystem;

constexpr const TCHAR* drivePath = _T("C:\\file");
constexpr int bufferSize = 4096;
constexpr int valueBytes = 14; // of the values behind the padding

void WritePadded(int padding, int bufSize)
{
    CFile file;
    ASSERT_TRUE(file.Open(drivePath, CFile::modeCreate | CFile::modeWrite));
    CArchive ar(&file, CArchive::store, bufSize);
    for (int i = 0; i < padding; ++i)
        ar << static_cast<BYTE>(i);
    ar << true << static_cast<BYTE>(0x12) << static_cast<WORD>(0xFEDC) << static_cast<short>(-2)
       << static_cast<DWORD>(0x89ABCDEF) << -559038737;
    ar.Close();
    file.Close();
}

// The cause of the archive exception that the action raises, or 0.
template <class Action> int CauseOf(Action action)
{
    try {
        action();
        return 0;
    } catch (CArchiveException* e) {
        const int cause = e->m_cause;
        EXPECT_EQ(std::u16string(e->m_strFileName), drivePath);
        e->Delete();
        return cause;
    }
}

// Each value is once before, once after and once across the end of the buffer.
TEST(FileTest, ValuesCrossTheEdgeOfTheBuffer)
{
    const test::TempPrefix prefix;
    const fs::path native = prefix.MakeFolder() / "file";
    constexpr std::string_view stored("\x01\x12\xDC\xFE\xFE\xFF\xEF\xCD\xAB\x89\xEF\xBE\xAD\xDE", valueBytes);
    for (const int bufSize : {bufferSize, 1, 0}) { // sizes too small for a value are raised
        for (int padding = bufferSize - valueBytes - 1; padding <= bufferSize + 1; ++padding) {
            WritePadded(padding, bufSize);
            const std::string bytes = test::ReadWhole(native);
            ASSERT_EQ(bytes.size(), static_cast<std::size_t>(padding + valueBytes));
            ASSERT_EQ(bytes.substr(bytes.size() - valueBytes), stored) << padding;

            CFile file;
            ASSERT_TRUE(file.Open(drivePath, CFile::modeRead));
            CArchive ar(&file, CArchive::load, bufSize);
            for (int i = 0; i < padding; ++i) {
                BYTE byte = 0;
                ar >> byte;
                ASSERT_EQ(byte, static_cast<BYTE>(i));
            }
            std::tuple<bool, BYTE, WORD, short, DWORD, int> values;
            std::apply([&ar](auto&... value) { (ar >> ... >> value); }, values);
            EXPECT_EQ(values, std::tuple(true, 0x12, 0xFEDC, -2, 0x89ABCDEFU, -559038737));
            BYTE end = 0;
            EXPECT_EQ(CauseOf([&] { ar >> end; }), CArchiveException::endOfFile);
            EXPECT_EQ(CauseOf([&ar] { ar << 1; }), CArchiveException::readOnly) << "the wrong direction";
            CArchive writer(&file, CArchive::store | CArchive::bNoFlushOnDelete, bufSize);
            EXPECT_EQ(CauseOf([&] { writer >> end; }), CArchiveException::writeOnly);
        }
    }
}

TEST(FileTest, EndsWithItsObjectAndReportsWhatTheSystemRefuses)
{
    const test::TempPrefix prefix;
    const fs::path native = prefix.MakeFolder() / "file";
    const int next = test::NextDescriptor();
    {
        CFile file;
        ASSERT_TRUE(file.Open(drivePath, CFile::modeCreate | CFile::modeWrite));
        CArchive(&file, CArchive::store) << static_cast<BYTE>('x');
        EXPECT_EQ(test::ReadWhole(native), "x") << "without Close";
    }
    EXPECT_EQ(test::NextDescriptor(), next);
    const auto isRefused = [](const auto& action) {
        try {
            action();
        } catch (CFileException* e) {
            e->Delete();
            return true;
        }
        return false;
    };
    CFile file;
    EXPECT_TRUE(isRefused([&file] { file.GetLength(); }));
    ASSERT_TRUE(file.Open(drivePath, CFile::modeRead));
    close(next);
    EXPECT_TRUE(isRefused([&file] { file.Close(); }));
}

// Other files may be endless, or block until they have a writer.
TEST(FileTest, ReadsOrdinaryFilesOnlyAndNeverWaits)
{
    const test::TempPrefix prefix;
    const fs::path folder = prefix.MakeFolder();
    ASSERT_EQ(mkfifo((folder / "fifo").c_str(), 0600), 0);
    ASSERT_EQ(mkfifo((folder / "written").c_str(), 0600), 0);
    fs::create_symlink("/dev/zero", folder / "zero");
    const auto isOpened = [](LPCTSTR path, UINT mode) {
        try {
            return CMirrorFile().Open(path, mode) != FALSE;
        } catch (CFileException* e) {
            e->Delete();
            return false;
        }
    };
    const auto indexOfOpened = [&] {
        constexpr const TCHAR* paths[] = {_T(""), _T("C:\\fifo"), _T("C:\\written"), _T("C:\\zero")};
        const int writer = open((folder / "written").c_str(), O_RDWR);
        for (int index = 0; index < 4; ++index) {
            if (isOpened(paths[index], CFile::modeRead) ||
                (index < 3 && isOpened(paths[index], CFile::modeCreate | CFile::modeWrite)))
                return index + 1;
        }
        return writer < 0 ? -1 : 0;
    };
    EXPECT_EQ(test::RunInChild(indexOfOpened), 0);
}

// A standard error that is never read, or broken, must not stop the host.
TEST(MessageTest, AFullOrBrokenPipeOnStandardErrorHoldsNothingUp)
{
    const auto showMessages = [] {
        int full[2];
        int broken[2];
        char head[10] = {};
        if (pipe(full) != 0 || pipe(broken) != 0 || dup2(full[1], STDERR_FILENO) < 0)
            return 1;
        const std::u16string longText(1 << 20, u'x');
        if (MessageBoxW(nullptr, longText.c_str(), _T("Error"), MB_OK) != IDOK)
            return 2;
        if (read(full[0], head, sizeof head) != sizeof head ||
            std::memcmp(head, "Error: xxx", sizeof head) != 0)
            return 3;
        if (close(broken[0]) != 0 || dup2(broken[1], STDERR_FILENO) < 0)
            return 4;
        if (MessageBoxW(nullptr, _T("text"), _T("Error"), MB_OK) != IDOK) // and no signal
            return 5;
        sigset_t signals; // of the host, which stay as they are
        if (pthread_sigmask(SIG_BLOCK, nullptr, &signals) != 0 || sigismember(&signals, SIGPIPE) != 0)
            return 6;
        sigaddset(&signals, SIGPIPE);
        pthread_sigmask(SIG_SETMASK, &signals, nullptr);
        raise(SIGPIPE);
        MessageBoxW(nullptr, _T("text"), _T("Error"), MB_OK);
        return sigpending(&signals) == 0 && sigismember(&signals, SIGPIPE) == 1 ? 0 : 7;
    };
    EXPECT_EQ(test::RunInChild(showMessages), 0);
}

} // namespace
