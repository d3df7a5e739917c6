#include "LayoutBytes.h"

#include <algorithm>

namespace
{

// A file in memory.
class MemoryFile : public CFile
{
public:
    explicit MemoryFile(std::string bytes = {}) : m_bytes(std::move(bytes)) {}

    UINT Read(void* lpBuf, UINT nCount) override
    {
        const std::size_t count = m_bytes.copy(static_cast<char*>(lpBuf), nCount, m_position);
        m_position += count;
        return static_cast<UINT>(count);
    }
    void Write(const void* lpBuf, UINT nCount) override
    {
        m_bytes.append(static_cast<const char*>(lpBuf), nCount);
    }
    const std::string& Bytes() const { return m_bytes; }

private:
    std::string m_bytes;
    std::size_t m_position = 0;
};

} // namespace

namespace test
{

std::string BytesOf(k_StyleAtlas& atlas)
{
    MemoryFile file;
    CArchive archive(&file, CArchive::store);
    atlas.Serialize(archive);
    archive.Close();
    return file.Bytes();
}

void ReadInto(k_StyleAtlas& atlas, std::string_view bytes)
{
    MemoryFile file{std::string(bytes)};
    CArchive archive(&file, CArchive::load);
    atlas.Serialize(archive);
    archive.Close();
}

} // namespace test
