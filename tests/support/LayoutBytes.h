// Layout files as strings.
#pragma once

#include <model/StyleAtlas.h>

#include <string>
#include <string_view>

namespace test
{

class MemoryFile : public CFile
{
public:
    explicit MemoryFile(std::string_view bytes = {}) : Bytes(bytes) {}

    UINT Read(void* lpBuf, UINT nCount) override
    {
        const std::size_t count = Bytes.copy(static_cast<char*>(lpBuf), nCount, m_position);
        m_position += count;
        return static_cast<UINT>(count);
    }
    void Write(const void* lpBuf, UINT nCount) override
    {
        Bytes.append(static_cast<const char*>(lpBuf), nCount);
    }

    std::string Bytes;

private:
    std::size_t m_position = 0;
};

// What an atlas, a row or a record writes.
template <class Object> std::string BytesOf(Object& object)
{
    MemoryFile file;
    CArchive archive(&file, CArchive::store);
    object.Serialize(archive);
    archive.Close();
    return file.Bytes;
}

// Lays a file of these bytes over the object; lets the reader's exceptions through.
template <class Object> void ReadInto(Object& object, std::string_view bytes)
{
    MemoryFile file(bytes);
    CArchive archive(&file, CArchive::load);
    object.Serialize(archive);
    archive.Close();
}

} // namespace test
