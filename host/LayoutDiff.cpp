#include "Commands.h"

#include "LayoutFile.h"
#include "LayoutWords.h"
#include "Text.h"
#include "WholeFile.h"

#include <algorithm>
#include <cstddef>
#include <iostream>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>

namespace atlashost
{
namespace
{

LayoutFile ReadGoodLayout(const char* path)
{
    std::string reason;
    try {
        LayoutFile file{ReadWholeFile(path, LayoutFile::MostMebibytes)};
        if (!file.Damage())
            return file;
        reason = DamageWords(*file.Damage());
    } catch (const std::runtime_error& error) {
        reason = error.what();
    }
    throw std::runtime_error{Printable(path, std::string::npos) + ": " + reason};
}

// The rows as the style atlas takes them: of several with one identity, the last.
class RowIndex
{
public:
    explicit RowIndex(const LayoutFile& file)
    {
        for (const LayoutRow& row : file.Rows())
            m_rows.insert_or_assign(row.identity, &row);
    }

    // Null where there is none.
    const LayoutRow* Find(const RowIdentity& identity) const
    {
        const auto found = m_rows.find(identity);
        return found == m_rows.end() ? nullptr : found->second;
    }

private:
    std::map<RowIdentity, const LayoutRow*> m_rows;
};

using Words = std::pair<std::string, std::string>; // the old ones and the new ones

class Comparison
{
public:
    Comparison(std::string oldPath, const LayoutFile& oldFile, std::string newPath, const LayoutFile& newFile)
        : m_paths{std::move(oldPath), std::move(newPath)}, m_old{oldFile}, m_new{newFile}
    {
    }

    // True where the files are the same.
    bool Print()
    {
        PrintChange("", {HeadWords(m_old), HeadWords(m_new)});
        for (const LayoutRow& row : m_old.Rows()) {
            if (m_oldRows.Find(row.identity) != &row)
                continue;
            if (const LayoutRow* const other = m_newRows.Find(row.identity))
                CompareRows(row, *other);
            else
                PrintLine('-', "", IdentityWords(row.identity) + "; " + RowWords(row));
        }
        for (const LayoutRow& row : m_new.Rows()) {
            if (m_newRows.Find(row.identity) == &row && m_oldRows.Find(row.identity) == nullptr)
                PrintLine('+', "", IdentityWords(row.identity) + "; " + RowWords(row));
        }
        return m_isSame;
    }

private:
    void CompareRows(const LayoutRow& row, const LayoutRow& other)
    {
        m_commonRow = &row;
        PrintChange("  ", {RowWords(row), RowWords(other)});
        ForEachRun(
            std::max(row.recordCount, other.recordCount),
            [&](std::size_t i) { return RecordChange(row, other, i); },
            [this](std::size_t first, std::size_t last, const Words& words) {
                const std::string columns = ColumnWords(first, last) + "  ";
                PrintChange("  ", {columns + words.first, columns + words.second});
            });
        m_commonRow = nullptr;
    }

    Words RecordChange(const LayoutRow& row, const LayoutRow& other, std::size_t i) const
    {
        const auto recordOf = [i](const LayoutFile& file, const LayoutRow& of) {
            return i < of.recordCount ? std::optional{file.RecordOf(of, i)} : std::nullopt;
        };
        const std::optional<LayoutRecord> before = recordOf(m_old, row);
        const std::optional<LayoutRecord> after = recordOf(m_new, other);
        if (before == after)
            return {};
        const auto inWords = [](const std::optional<LayoutRecord>& record, auto words) {
            return record ? words(*record) : "no record";
        };
        Words shown{inWords(before, RecordWords), inWords(after, RecordWords)};
        if (shown.first == shown.second) // they differ in what does not show
            shown = {FieldWords(*before, *after), FieldWords(*after, *before)};
        return shown;
    }

    void PrintChange(const char* indent, const Words& words)
    {
        if (words.first == words.second)
            return;
        PrintLine('-', indent, words.first);
        PrintLine('+', indent, words.second);
    }

    // The files are named before the first difference, and the row that they share before its own first.
    void PrintLine(char side, const char* indent, const std::string& words)
    {
        if (std::exchange(m_isSame, false))
            std::cout << "--- " << m_paths.first << "\n+++ " << m_paths.second << '\n';
        if (const LayoutRow* const row = std::exchange(m_commonRow, nullptr))
            std::cout << ' ' << IdentityWords(row->identity) << '\n';
        std::cout << side << indent << words << '\n';
    }

    const Words m_paths;
    const LayoutFile& m_old;
    const LayoutFile& m_new;
    const RowIndex m_oldRows{m_old};
    const RowIndex m_newRows{m_new};
    const LayoutRow* m_commonRow = nullptr; // not yet named
    bool m_isSame = true;
};

} // namespace

int CompareLayouts(const char* oldPath, const char* newPath)
{
    const LayoutFile oldFile = ReadGoodLayout(oldPath);
    const LayoutFile newFile = ReadGoodLayout(newPath);
    Comparison comparison{Printable(oldPath, std::string::npos), oldFile,
                          Printable(newPath, std::string::npos), newFile};
    return comparison.Print() ? Succeeded : LayoutsDiffer;
}

} // namespace atlashost
