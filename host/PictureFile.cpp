#include "PictureFile.h"

#include "Texts.h"

#include <bindings/terminal/Text.h>

#include <QBuffer>
#include <QByteArray>

#include <cerrno>
#include <cstring>
#include <stdexcept>
#include <string>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace atlashost
{
namespace
{

using styleatlas::terminal::NoLimit;
using styleatlas::terminal::Printable;

constexpr int Permissions = 0666; // less the user's mask

[[noreturn]] void ThrowError(const char* path, const std::string& reason)
{
    throw std::runtime_error{Text("%1 cannot be written: %2", {Printable(path, NoLimit), reason})};
}

class OutputFile
{
public:
    // Without O_NONBLOCK the opening of a pipe would wait for a reader.
    explicit OutputFile(const char* path)
        : m_path{path}, m_descriptor{open(path,
                                          O_WRONLY | O_CREAT | O_TRUNC | O_NONBLOCK | O_NOCTTY | O_CLOEXEC,
                                          Permissions)}
    {
        if (m_descriptor < 0 || fcntl(m_descriptor, F_SETFL, 0) != 0)
            ThrowError(path, std::strerror(errno));
    }
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;
    ~OutputFile()
    {
        if (m_descriptor >= 0)
            close(m_descriptor);
    }

    void Write(QByteArrayView bytes)
    {
        while (!bytes.empty()) {
            const ssize_t count = write(m_descriptor, bytes.data(), static_cast<std::size_t>(bytes.size()));
            if (count < 0 && errno == EINTR)
                continue;
            if (count < 0)
                ThrowError(m_path, std::strerror(errno));
            bytes = bytes.sliced(count);
        }
    }

    // Some file systems report a full disk only here.
    void Close()
    {
        if (close(std::exchange(m_descriptor, -1)) != 0)
            ThrowError(m_path, std::strerror(errno));
    }

private:
    const char* m_path;
    int m_descriptor;
};

} // namespace

void WritePng(const QImage& picture, const char* path)
{
    QByteArray bytes;
    QBuffer buffer{&bytes};
    if (!buffer.open(QIODevice::WriteOnly) || !picture.save(&buffer, "PNG"))
        ThrowError(path, Text("the picture cannot be encoded"));
    OutputFile file{path};
    file.Write(bytes);
    file.Close();
}

} // namespace atlashost
