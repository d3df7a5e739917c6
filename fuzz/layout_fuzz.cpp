// The reader of the layout file on any bytes at all: what it takes in has to come back from a second reading
// of what it writes, row by row and record by record, and what it refuses must do no harm.
#include "FuzzCatalogue.h"

#include <system/MessageDoor.h>

#include <afxfile.h>
#include <cstdio>
#include <cstdlib>
#include <sys/mman.h>
#include <unistd.h>

namespace
{

constexpr int archiveBufferSize = 4096;

// An ordinary file in memory, and the path by which the framework opens it.
class MemoryFile
{
public:
    MemoryFile() : m_file(memfd_create("layout", MFD_CLOEXEC))
    {
        if (m_file < 0)
            std::abort();
        m_path.Format(_T("/proc/self/fd/%d"), m_file);
    }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;
    ~MemoryFile() { close(m_file); }

    const CString& Path() const { return m_path; }

    void Fill(const std::uint8_t* data, std::size_t size) const
    {
        if (ftruncate(m_file, 0) != 0 || pwrite(m_file, data, size, 0) != static_cast<ssize_t>(size))
            std::abort();
    }

    std::string Bytes() const
    {
        std::string bytes(static_cast<std::size_t>(lseek(m_file, 0, SEEK_END)), '\0');
        if (pread(m_file, bytes.data(), bytes.size(), 0) != static_cast<ssize_t>(bytes.size()))
            std::abort();
        return bytes;
    }

private:
    int m_file;
    CString m_path;
};

void Require(bool holds, const char* what)
{
    if (holds)
        return;
    std::fprintf(stderr, "layout-fuzz: %s\n", what);
    std::abort();
}

// False when the reader refuses the file, by an exception of the framework's; any other ends the run.
bool Read(k_StyleAtlas& atlas, const MemoryFile& source)
{
    CFile file;
    Require(file.Open(source.Path(), CFile::modeRead) != FALSE, "the file does not open for reading");
    try {
        CArchive archive(&file, CArchive::load, archiveBufferSize);
        atlas.Serialize(archive);
        return true;
    } catch (CException* e) {
        e->Delete();
        return false;
    }
}

void Write(k_StyleAtlas& atlas, const MemoryFile& target)
{
    CFile file;
    Require(file.Open(target.Path(), CFile::modeCreate | CFile::modeWrite) != FALSE,
            "the file does not open for writing");
    CArchive archive(&file, CArchive::store, archiveBufferSize);
    atlas.Serialize(archive);
    archive.Close();
}

void BuildFresh(k_StyleAtlas& atlas)
{
    const INT_PTR rows = atlas.BuildCatalogue();
    for (INT_PTR row = 0; row < rows; ++row)
        Require(atlas.GetRow(row)->Styles.GetSize() == atlas.ColumnCount,
                "a row of the catalogue lacks records");
}

bool Equal(const k_LineDef& a, const k_LineDef& b)
{
    return a.Reserved == b.Reserved && a.LineColor == b.LineColor && a.SymbolColor == b.SymbolColor &&
           a.SymbolShape == b.SymbolShape && a.SymbolSize == b.SymbolSize && a.SymbolFill == b.SymbolFill &&
           a.LineStyle == b.LineStyle && a.LineWidth == b.LineWidth && a.UseSymbolColor == b.UseSymbolColor;
}

bool Equal(const k_QuantityDesc& a, const k_QuantityDesc& b)
{
    QuantityKey keyA;
    QuantityKey keyB;
    a.GetKey(keyA);
    b.GetKey(keyB);
    bool equal = keyA == keyB && a.Level == b.Level && a.ReservedFlag == b.ReservedFlag &&
                 a.Styles.GetSize() == b.Styles.GetSize();
    for (INT_PTR i = 0; equal && i < a.Styles.GetSize(); ++i)
        equal = Equal(*a.Styles.GetAt(i), *b.Styles.GetAt(i));
    return equal;
}

// Also finds each row by its own key.
void RequireEqual(const k_StyleAtlas& a, const k_StyleAtlas& b)
{
    Require(a.Version == b.Version && a.ColumnCount == b.ColumnCount, "the header does not come back");
    Require(a.Rows.GetSize() == b.Rows.GetSize(), "the number of rows does not come back");
    for (INT_PTR i = 0; i < a.Rows.GetSize(); ++i) {
        Require(a.GetRow(i) != nullptr && b.GetRow(i) != nullptr, "a row is missing");
        Require(Equal(*a.GetRow(i), *b.GetRow(i)), "a row does not come back");
        QuantityKey key;
        a.GetRow(i)->GetKey(key);
        const k_QuantityDesc* const pFound = a.GetRow(a.FindRow(key));
        QuantityKey foundKey;
        Require(pFound != nullptr && pFound->GetKey(foundKey) && foundKey == key, "a row is not found");
    }
}

void RequireRoundTrip(k_StyleAtlas& atlas)
{
    const MemoryFile first;
    Write(atlas, first);
    k_StyleAtlas again;
    BuildFresh(again);
    Require(Read(again, first), "a file that was written is refused");
    RequireEqual(atlas, again);
    const MemoryFile second;
    Write(again, second);
    Require(first.Bytes() == second.Bytes(), "the second file differs from the first");
}

int SwallowMessage(HWND, LPCWSTR, LPCWSTR, UINT)
{
    return IDOK;
}

} // namespace

extern "C" {

// What the fuzzer calls; the linker has to see them.
[[gnu::visibility("default")]] int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/)
{
    SetMessageDoor(SwallowMessage);
    test::SetUnits(fuzz::CatalogueEntries());
    return 0;
}

[[gnu::visibility("default")]] int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const MemoryFile input;
    input.Fill(data, size);
    k_StyleAtlas atlas;
    BuildFresh(atlas);
    const INT_PTR catalogueRows = atlas.Rows.GetSize();
    Read(atlas, input); // taken or refused
    Require(atlas.Rows.GetSize() >= catalogueRows, "a row of the catalogue is gone");
    // What a refused file left behind is a table as good as any.
    RequireRoundTrip(atlas);
    return 0;
}

} // extern "C"
