#include "OutputFile.h"

#include "Texts.h"

#include <bindings/terminal/Text.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <stdexcept>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace atlashost
{
namespace
{

using styleatlas::terminal::NoLimit;
using styleatlas::terminal::Printable;

constexpr unsigned NewPermissions = 0666; // less the user's mask
constexpr unsigned AllPermissions = 0777;

[[noreturn]] void ThrowErrno(const char* path)
{
    ThrowUnwritable(path, std::strerror(errno));
}

unsigned UserMask()
{
    const mode_t mask = umask(0);
    umask(mask);
    return mask;
}

std::string WithoutLinks(const char* path)
{
    const std::unique_ptr<char, decltype(&std::free)> resolved{realpath(path, nullptr), &std::free};
    if (!resolved)
        ThrowErrno(path);
    return resolved.get();
}

// By a redirection, into which others write on.
bool IsStandardOutput(const struct stat& file)
{
    struct stat own {
    };
    return fstat(STDOUT_FILENO, &own) == 0 && own.st_dev == file.st_dev && own.st_ino == file.st_ino;
}

} // namespace

void ThrowUnwritable(const char* path, const std::string& reason)
{
    throw std::runtime_error{Text("%1 cannot be written: %2", {Printable(path, NoLimit), reason})};
}

OutputFile::OutputFile(const char* path) : m_path{path}
{
    struct stat status {
    };
    if (stat(path, &status) == 0) {
        if (!S_ISREG(status.st_mode) || IsStandardOutput(status))
            OpenItself();
        else if (access(path, W_OK) == 0)
            OpenBeside(WithoutLinks(path), status.st_mode & AllPermissions);
        else
            ThrowErrno(path);
    } else if (lstat(path, &status) != 0 && errno == ENOENT) {
        OpenBeside(path, NewPermissions & ~UserMask());
    } else { // a link to nothing
        OpenItself();
    }
}

OutputFile::~OutputFile()
{
    if (m_descriptor >= 0)
        close(m_descriptor);
    if (!m_new.empty())
        unlink(m_new.c_str());
}

void OutputFile::OpenBeside(const std::string& target, unsigned permissions)
{
    std::string name = target + ".XXXXXX";
    m_descriptor = mkostemp(name.data(), O_CLOEXEC);
    if (m_descriptor < 0)
        ThrowErrno(m_path);
    m_target = target;
    m_new = std::move(name);
    fchmod(m_descriptor, permissions);
}

// Without O_NONBLOCK the opening of a pipe would wait for a reader.
void OutputFile::OpenItself()
{
    m_descriptor =
        open(m_path, O_WRONLY | O_CREAT | O_TRUNC | O_NONBLOCK | O_NOCTTY | O_CLOEXEC, NewPermissions);
    if (m_descriptor < 0 || fcntl(m_descriptor, F_SETFL, 0) != 0)
        ThrowErrno(m_path);
}

void OutputFile::Write(QByteArrayView bytes)
{
    while (!bytes.empty()) {
        const ssize_t count = write(m_descriptor, bytes.data(), static_cast<std::size_t>(bytes.size()));
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            ThrowErrno(m_path);
        bytes = bytes.sliced(count);
    }
}

// Some file systems report a full disk only when the file is closed.
void OutputFile::Finish()
{
    if (close(std::exchange(m_descriptor, -1)) != 0)
        ThrowErrno(m_path);
    if (!m_new.empty() && std::rename(m_new.c_str(), m_target.c_str()) != 0)
        ThrowErrno(m_path);
    m_new.clear();
}

} // namespace atlashost
