#include "LayoutReader.h"

#include <bindings/terminal/Text.h>

#include <cerrno>
#include <cstring>
#include <memory>
#include <stdexcept>
#include <utility>

namespace atlaslayout
{
using styleatlas::terminal::Counted;

namespace
{

struct DeleteException {
    void operator()(CException* error) const { error->Delete(); }
};

} // namespace

LayoutReader::LayoutReader(const char* path) : m_file{path}
{
    if (Read([this] { k_SerializeLayoutHead(m_archive, m_head.version, m_head.columnCount, m_rowCount); }) !=
        Result::Good)
        SetDamage("the file ends within its head");
}

std::optional<LayoutRow> LayoutReader::Next()
{
    if (m_damage || m_nextRow == m_rowCount)
        return std::nullopt;
    k_QuantityDesc stored;
    if (const Result result = Read([&] { stored.Serialize(m_archive); }); result != Result::Good) {
        SetDamage(DamagedRow(stored, result));
        return stored.Styles.GetSize() > 0 ? std::optional{LayoutRow{stored}} : std::nullopt;
    }
    ++m_nextRow;
    LayoutRow row{stored};
    if (!m_keys.insert(row.key).second && ++m_replacedRows > std::size_t{k_MaxReplacedRows})
        SetDamage("more than " + std::to_string(k_MaxReplacedRows) + " rows replace earlier ones");
    return row;
}

// Throws where the bytes can't be read, or the memory doesn't hold a row.
template <class Serialize> LayoutReader::Result LayoutReader::Read(Serialize serialize)
{
    try {
        serialize();
        return Result::Good;
    } catch (CException* caught) {
        const std::unique_ptr<CException, DeleteException> error{caught};
        if (const auto* const ofFile = dynamic_cast<const CFileException*>(caught))
            throw std::runtime_error{std::strerror(ofFile->m_lOsError)};
        if (dynamic_cast<const CMemoryException*>(caught) != nullptr)
            throw std::runtime_error{std::strerror(ENOMEM)};
        const auto* const ofArchive = dynamic_cast<const CArchiveException*>(caught);
        const bool isEnd = ofArchive != nullptr && ofArchive->m_cause == CArchiveException::endOfFile;
        return isEnd ? Result::EndOfFile : Result::Refused;
    }
}

std::string LayoutReader::DamagedRow(const k_QuantityDesc& row, Result result) const
{
    const std::string name = "row " + std::to_string(m_nextRow);
    const int claimed = row.ColumnCount;
    if (result == Result::Refused)
        return name + " claims " + std::to_string(claimed) + " records, of which 0 to " +
               std::to_string(k_MaxStoredRecords) + " are allowed";
    // The row gets places for its records once its head has been read.
    if (row.Styles.GetSize() == 0)
        return "the file claims " + Counted(m_rowCount, "row") + ", but ends within the head of " + name;
    return name + " claims " + Counted(static_cast<std::size_t>(claimed), "record") +
           ", but the file ends within record " + std::to_string(LayoutRow{row}.recordCount);
}

void LayoutReader::SetDamage(std::string reason)
{
    m_damage = {m_archive.GetPosition(), std::move(reason)};
}

std::string DamageWords(const LayoutDamage& damage)
{
    return "damaged at byte " + std::to_string(damage.byte) + ": " + damage.reason;
}

LayoutContents ReadLayout(const char* path)
{
    try {
        LayoutReader file{path};
        LayoutContents contents{file.Head(), {}};
        while (std::optional<LayoutRow> row = file.Next())
            contents.rows.push_back(std::move(*row));
        if (file.Damage())
            throw std::runtime_error{DamageWords(*file.Damage())};
        return contents;
    } catch (const std::runtime_error& error) {
        throw std::runtime_error{styleatlas::terminal::Printable(path, styleatlas::terminal::NoLimit) + ": " +
                                 error.what()};
    }
}

} // namespace atlaslayout
