#include "Commands.h"
#include "LayoutReader.h"
#include "LayoutWords.h"
#include "Runs.h"

#include <bindings/terminal/Text.h>

#include <algorithm>
#include <iostream>
#include <utility>

namespace atlaslayout
{
namespace
{

using styleatlas::terminal::NoLimit;
using styleatlas::terminal::Printable;

using Change = std::pair<std::string, std::string>; // the old ones and the new ones

class Comparison
{
public:
    Comparison(const char* oldPath, const char* newPath)
        : m_oldPath{oldPath}, m_newPath{newPath}, m_old{ReadLayout(oldPath)}, m_new{ReadLayout(newPath)}
    {
    }

    // True if the files are the same.
    bool Print()
    {
        PrintChange("", {HeadWords(m_old.head), HeadWords(m_new.head)});
        for (const LayoutRow& row : m_old.rows) {
            if (const LayoutRow* const other = m_new.Find(row.key))
                CompareRows(row, *other);
            else
                PrintLine('-', "", KeyWords(row.key) + "; " + RowWords(row));
        }
        for (const LayoutRow& row : m_new.rows) {
            if (m_old.Find(row.key) == nullptr)
                PrintLine('+', "", KeyWords(row.key) + "; " + RowWords(row));
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
            [this](std::size_t first, std::size_t last, const Change& words) {
                const std::string columns = ColumnWords(first, last) + "  ";
                PrintChange("  ", {columns + words.first, columns + words.second});
            });
        m_commonRow = nullptr;
    }

    static Change RecordChange(const LayoutRow& row, const LayoutRow& other, std::size_t i)
    {
        const LayoutRecord* const before = row.RecordOf(i);
        const LayoutRecord* const after = other.RecordOf(i);
        if (before != nullptr && after != nullptr && *before == *after)
            return {};
        const auto inWords = [](const LayoutRecord* record, auto words) {
            return record != nullptr ? words(*record) : "no record";
        };
        Change shown{inWords(before, RecordWords), inWords(after, RecordWords)};
        if (shown.first == shown.second) // they differ in what the words leave out
            shown = {FieldWords(*before, *after), FieldWords(*after, *before)};
        return shown;
    }

    void PrintChange(const char* indent, const Change& words)
    {
        if (words.first == words.second)
            return;
        PrintLine('-', indent, words.first);
        PrintLine('+', indent, words.second);
    }

    // Names the files before the first difference, and a row of both files before its first.
    void PrintLine(char side, const char* indent, const std::string& words)
    {
        if (std::exchange(m_isSame, false))
            std::cout << "--- " << Printable(m_oldPath, NoLimit) << "\n+++ " << Printable(m_newPath, NoLimit)
                      << '\n';
        if (const LayoutRow* const row = std::exchange(m_commonRow, nullptr))
            std::cout << ' ' << KeyWords(row->key) << '\n';
        std::cout << side << indent << words << '\n';
    }

    const char* m_oldPath;
    const char* m_newPath;
    LayoutTable m_old;
    LayoutTable m_new;
    const LayoutRow* m_commonRow = nullptr; // not yet named
    bool m_isSame = true;
};

} // namespace

int CompareLayouts(Words paths, const Options& /*options*/)
{
    return Comparison{paths[0], paths[1]}.Print() ? Succeeded : Negative;
}

} // namespace atlaslayout
