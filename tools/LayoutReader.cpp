#include "LayoutReader.h"

#include <bindings/terminal/Text.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <memory>
#include <stdexcept>
#include <tuple>

#include <fcntl.h>

namespace atlaslayout
{
namespace
{

using styleatlas::terminal::Counted;

struct DeleteException {
    void operator()(CException* error) const { error->Delete(); }
};

LayoutRow ToRow(const k_QuantityDesc& stored)
{
    LayoutRow row;
    stored.GetKey(row.key);
    row.level = stored.Level;
    row.reservedFlag = stored.ReservedFlag;
    // A record that was not read to its end is null, and so are those behind it.
    for (INT_PTR i = 0; i < stored.Styles.GetSize() && stored.Styles.GetAt(i) != nullptr; ++i) {
        const LayoutRecord record{*stored.Styles.GetAt(i)};
        row.recordCount = static_cast<std::size_t>(i) + 1;
        if (row.runs.empty() || !(row.runs.back().record == record))
            row.runs.push_back({row.recordCount, record});
        row.runs.back().end = row.recordCount;
    }
    return row;
}

} // namespace

LayoutRecord::LayoutRecord(const k_LineDef& stored)
    : reserved{stored.Reserved}, style{.symbolColor = {stored.SymbolColor},
                                       .symbolShape = styleatlas::SymbolShape{stored.SymbolShape},
                                       .symbolSize = stored.SymbolSize,
                                       .symbolFill = styleatlas::SymbolFill{stored.SymbolFill},
                                       .lineColor = {stored.LineColor},
                                       .lineStyle = styleatlas::LineStyle{stored.LineStyle},
                                       .lineWidth = stored.LineWidth,
                                       .useSymbolColor = stored.UseSymbolColor}
{
}

bool LayoutRecord::operator==(const LayoutRecord& other) const
{
    const auto members = [](const LayoutRecord& record) {
        const styleatlas::Style& s = record.style;
        return std::make_tuple(record.reserved, s.symbolColor.value, s.symbolShape, s.symbolSize,
                               s.symbolFill, s.lineColor.value, s.lineStyle, s.lineWidth, s.useSymbolColor);
    };
    return members(*this) == members(other);
}

const LayoutRecord& LayoutRow::RecordOf(std::size_t column) const
{
    return std::ranges::upper_bound(runs, column, {}, &Run::end)->record;
}

LayoutReader::File::File(const char* path)
{
    if (OpenNative(path, O_RDONLY) == FALSE)
        throw std::runtime_error{errno == EINVAL ? "not a regular file" : std::strerror(errno)};
}

LayoutReader::LayoutReader(const char* path) : m_file{path}
{
    if (Read([this] { k_SerializeLayoutHead(m_archive, m_version, m_columnCount, m_rowCount); }) !=
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
        return stored.Styles.GetSize() > 0 ? std::optional{ToRow(stored)} : std::nullopt;
    }
    ++m_nextRow;
    LayoutRow row = ToRow(stored);
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
           ", but the file ends within record " + std::to_string(ToRow(row).recordCount);
}

void LayoutReader::SetDamage(std::string reason)
{
    m_damage = {m_archive.GetPosition(), std::move(reason)};
}

} // namespace atlaslayout
