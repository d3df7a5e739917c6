#include "Commands.h"
#include "LayoutWords.h"

#include <bindings/terminal/Text.h>

#include <algorithm>
#include <iostream>
#include <map>
#include <stdexcept>
#include <utility>
#include <vector>

namespace atlaslayout
{
namespace
{

using styleatlas::terminal::NoLimit;
using styleatlas::terminal::Printable;

// A whole file, as the style atlas takes it: of several rows with one key, the last.
struct LayoutTable {
    // Throws std::runtime_error, which names the file.
    explicit LayoutTable(const char* path);

    // Null if there is none.
    const LayoutRow* Find(const QuantityKey& key) const
    {
        const auto found = positions.find(key);
        return found == positions.end() ? nullptr : &rows[found->second];
    }

    std::string shownPath;
    std::string headWords;
    std::vector<LayoutRow> rows;
    std::map<QuantityKey, std::size_t> positions;
};

LayoutTable::LayoutTable(const char* path) : shownPath{Printable(path, NoLimit)}
{
    try {
        LayoutReader file{path};
        headWords = HeadWords(file);
        while (std::optional<LayoutRow> row = file.Next()) {
            const auto [place, isNew] = positions.try_emplace(row->key, rows.size());
            if (isNew)
                rows.push_back(std::move(*row));
            else
                rows[place->second] = std::move(*row);
        }
        if (file.Damage())
            throw std::runtime_error{DamageWords(*file.Damage())};
    } catch (const std::runtime_error& error) {
        throw std::runtime_error{shownPath + ": " + error.what()};
    }
}

// Divides the numbers below count into runs of equal keyOf(number), and calls use(first, last, key) for each.
template <class KeyOf, class Use> void ForEachRun(std::size_t count, KeyOf keyOf, Use use)
{
    if (count == 0)
        return;
    std::size_t first = 0;
    auto key = keyOf(first);
    for (std::size_t i = 1; i < count; ++i) {
        auto next = keyOf(i);
        if (next == key)
            continue;
        use(first, i - 1, key);
        first = i;
        key = std::move(next);
    }
    use(first, count - 1, key);
}

using Words = std::pair<std::string, std::string>; // the old ones and the new ones

class Comparison
{
public:
    Comparison(const LayoutTable& oldTable, const LayoutTable& newTable) : m_old{oldTable}, m_new{newTable} {}

    // True if the files are the same.
    bool Print()
    {
        PrintChange("", {m_old.headWords, m_new.headWords});
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
            [this](std::size_t first, std::size_t last, const Words& words) {
                const std::string columns = ColumnWords(first, last) + "  ";
                PrintChange("  ", {columns + words.first, columns + words.second});
            });
        m_commonRow = nullptr;
    }

    static Words RecordChange(const LayoutRow& row, const LayoutRow& other, std::size_t i)
    {
        const auto recordOf = [i](const LayoutRow& of) {
            return i < of.recordCount ? &of.RecordOf(i) : nullptr;
        };
        const LayoutRecord* const before = recordOf(row);
        const LayoutRecord* const after = recordOf(other);
        if (before != nullptr && after != nullptr && *before == *after)
            return {};
        const auto inWords = [](const LayoutRecord* record, auto words) {
            return record != nullptr ? words(*record) : "no record";
        };
        Words shown{inWords(before, RecordWords), inWords(after, RecordWords)};
        if (shown.first == shown.second) // they differ in what the words leave out
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

    // Names the files before the first difference, and a row of both files before its first.
    void PrintLine(char side, const char* indent, const std::string& words)
    {
        if (std::exchange(m_isSame, false))
            std::cout << "--- " << m_old.shownPath << "\n+++ " << m_new.shownPath << '\n';
        if (const LayoutRow* const row = std::exchange(m_commonRow, nullptr))
            std::cout << ' ' << KeyWords(row->key) << '\n';
        std::cout << side << indent << words << '\n';
    }

    const LayoutTable& m_old;
    const LayoutTable& m_new;
    const LayoutRow* m_commonRow = nullptr; // not yet named
    bool m_isSame = true;
};

} // namespace

int CompareLayouts(const char* oldPath, const char* newPath)
{
    const LayoutTable oldTable{oldPath};
    const LayoutTable newTable{newPath};
    return Comparison{oldTable, newTable}.Print() ? Succeeded : LayoutsDiffer;
}

} // namespace atlaslayout
