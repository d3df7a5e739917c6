// Reads a layout file row by row, by the reader of the style atlas itself.
#pragma once

#include <model/LayoutHead.h>
#include <styleatlas.hpp>

#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace atlaslayout
{

struct LayoutRecord {
    explicit LayoutRecord(const k_LineDef& stored);
    bool operator==(const LayoutRecord& other) const;

    WORD reserved;
    styleatlas::Style style;
};

struct LayoutRow {
    // The record of a file column below recordCount.
    const LayoutRecord& RecordOf(std::size_t column) const;

    QuantityKey key;
    BYTE level = 0;
    bool reservedFlag = false;
    std::size_t recordCount = 0;

    // Neighbouring equal records are kept once, so that a sparse file takes no more memory than disk space.
    struct Run {
        std::size_t end; // one past the last file column
        LayoutRecord record;
    };
    std::vector<Run> runs;
};

struct LayoutDamage {
    ULONGLONG byte = 0; // at which the reader stopped
    std::string reason;
};

class LayoutReader
{
public:
    // Opens the file and reads the head. Throws std::runtime_error with a printable reason unless it is a
    // regular file that can be read.
    explicit LayoutReader(const char* path);

    DWORD Version() const { return m_version; }
    DWORD ColumnCount() const { return m_columnCount; }
    DWORD RowCount() const { return m_rowCount; } // as claimed

    // The next row; of a damaged one, the records before the damage. Empty after the last row, and where a
    // damage leaves nothing of the row. Throws std::runtime_error where the file can't be read on.
    std::optional<LayoutRow> Next();

    // What has stopped the reader, if anything has.
    const std::optional<LayoutDamage>& Damage() const { return m_damage; }

    // The rows so far that replaced one with the same key.
    std::size_t ReplacedRows() const { return m_replacedRows; }

    // The bytes behind what was read.
    ULONGLONG UnreadBytes() const { return m_file.GetLength() - m_archive.GetPosition(); }

private:
    class File : public CFile
    {
    public:
        explicit File(const char* path);
    };

    enum class Result { Good, EndOfFile, Refused };

    template <class Serialize> Result Read(Serialize serialize);
    std::string DamagedRow(const k_QuantityDesc& row, Result result) const;
    void SetDamage(std::string reason);

    File m_file;
    CArchive m_archive{&m_file, CArchive::load};
    DWORD m_version = 0;
    DWORD m_columnCount = 0;
    DWORD m_rowCount = 0;
    DWORD m_nextRow = 0;
    std::set<QuantityKey> m_keys;
    std::size_t m_replacedRows = 0;
    std::optional<LayoutDamage> m_damage;
};

} // namespace atlaslayout
