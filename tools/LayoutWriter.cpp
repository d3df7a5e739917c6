#include "LayoutWriter.h"

#include "NativeFile.h"
#include "Texts.h"

#include <bindings/terminal/Text.h>
#include <model/LayoutHead.h>

#include <afxpriv.h>
#include <filesystem>
#include <iostream>
#include <stdexcept>

namespace atlaslayout
{
namespace
{

using namespace styleatlas::terminal;

class OutputFile : public CFile
{
public:
    void Write(const void* lpBuf, UINT nCount) override
    {
        std::cout.write(static_cast<const char*>(lpBuf), nCount);
    }
};

void Write(CFile& file, const LayoutContents& contents)
{
    // If an exception interrupts the writing, the archive must not flush its buffer.
    CArchive archive{&file, CArchive::store | CArchive::bNoFlushOnDelete};
    LayoutHead head = contents.head;
    auto count = static_cast<DWORD>(contents.rows.size());
    k_SerializeLayoutHead(archive, head.version, head.columnCount, count);
    for (const LayoutRow& row : contents.rows) {
        k_QuantityDesc stored{row.key};
        stored.Level = row.level;
        stored.ReservedFlag = row.reservedFlag;
        stored.Styles.SetSize(static_cast<INT_PTR>(row.recordCount));
        INT_PTR column = 0;
        for (const LayoutRow::Run& run : row.runs) {
            for (; column < static_cast<INT_PTR>(run.end); ++column) {
                stored.Styles.SetAt(column, new k_LineDef);
                run.record.CopyTo(*stored.Styles.GetAt(column));
            }
        }
        stored.Serialize(archive);
    }
    archive.Close();
}

} // namespace

void SaveLayout(const char* path, const LayoutContents& contents)
{
    const std::string shownPath = Printable(path, NoLimit);
    const std::string whole = std::filesystem::absolute(path).native();
    if (ToUtf8(ToUtf16(whole)) != whole) // the framework's paths are of 16-bit characters
        throw std::runtime_error{shownPath + ": " + Text("the path is not in UTF-8")};
    try {
        WithStandardErrors([&] {
            CMirrorFile file;
            if (!file.Open(ToUtf16(whole).c_str(), CFile::modeCreate | CFile::modeWrite))
                throw std::runtime_error{Text("no file can be made here")};
            Write(file, contents);
            file.Close();
        });
    } catch (const std::runtime_error& error) {
        throw std::runtime_error{shownPath + ": " + error.what()};
    }
}

void PrintLayout(const LayoutContents& contents)
{
    WithStandardErrors([&] {
        OutputFile output;
        Write(output, contents);
    });
}

} // namespace atlaslayout
