// A file that replaces an old one when it is complete.
#pragma once

#include <QByteArrayView>

#include <string>

namespace atlashost
{

// Every member but the destructor throws std::runtime_error, which names the path and the reason.
class OutputFile
{
public:
    // A new file is written beside the old one. What is no regular file (a pipe, a device), and
    // the standard output, is written itself. The folder must be writable.
    explicit OutputFile(const char* path);
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    // Removes the new file if it is not complete.
    ~OutputFile();

    void Write(QByteArrayView bytes);

    // Puts the file in the old one's place.
    void Finish();

private:
    void OpenBeside(const std::string& target, unsigned permissions);
    void OpenItself();

    const char* m_path;
    std::string m_target; // links are followed
    std::string m_new;    // empty if the file itself is written
    int m_descriptor = -1;
};

// Throws std::runtime_error: the path can't be written for this reason.
[[noreturn]] void ThrowUnwritable(const char* path, const std::string& reason);

} // namespace atlashost
