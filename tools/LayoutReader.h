// Reads a layout file row by row, by the reader of the style atlas itself.
#pragma once

#include "LayoutContents.h"
#include "NativeFile.h"

#include <model/LayoutHead.h>

#include <cstddef>
#include <optional>
#include <set>
#include <string>

namespace atlaslayout
{

struct LayoutDamage {
    ULONGLONG byte = 0; // at which the reader stopped
    std::string reason;
};

// "damaged at byte 8: ..."
std::string DamageWords(const LayoutDamage& damage);

class LayoutReader
{
public:
    // Opens the file and reads the head. Throws std::runtime_error with a printable reason unless it is a
    // regular file that can be read.
    explicit LayoutReader(const char* path);

    const LayoutHead& Head() const { return m_head; }
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
    enum class Result { Good, EndOfFile, Refused };

    template <class Serialize> Result Read(Serialize serialize);
    std::string DamagedRow(const k_QuantityDesc& row, Result result) const;
    void SetDamage(std::string reason);

    NativeFile m_file;
    CArchive m_archive{&m_file, CArchive::load};
    LayoutHead m_head;
    DWORD m_rowCount = 0;
    DWORD m_nextRow = 0;
    std::set<QuantityKey> m_keys;
    std::size_t m_replacedRows = 0;
    std::optional<LayoutDamage> m_damage;
};

// The whole file. Throws std::runtime_error, which names the file, if it is damaged or can't be read.
LayoutContents ReadLayout(const char* path);

} // namespace atlaslayout
