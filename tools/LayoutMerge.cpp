// The command merge.
#include "Commands.h"
#include "JsonFields.h"
#include "LayoutReader.h"
#include "LayoutWords.h"
#include "LayoutWriter.h"
#include "Runs.h"
#include "Texts.h"

#include <bindings/terminal/CommandLine.h>

#include <filesystem>
#include <iostream>
#include <list>
#include <utility>

namespace atlaslayout
{
namespace
{

enum class Side { Ours, Theirs };

// Merges the changes of ours and theirs since base, by row, file column and field, and prints the conflicts.
// Rows stand in the order of ours, and a row that theirs has added behind the one before it there.
class Merge
{
public:
    Merge(LayoutTable base, LayoutTable ours, LayoutTable theirs, Side preferred)
        : m_base{std::move(base)}, m_ours{std::move(ours)}, m_theirs{std::move(theirs)}, m_takesTheirs{
                                                                                             preferred ==
                                                                                             Side::Theirs}
    {
    }

    // With the preferred side's values where there are conflicts.
    LayoutContents Run()
    {
        LayoutContents merged;
        Conflicts conflicts;
        merged.head = MergeFields(HeadFields(), &m_base.head, m_ours.head, m_theirs.head, conflicts);
        Print("", conflicts);
        for (const LayoutRow& row : m_ours.rows)
            TakeOurs(row);
        auto place = m_rows.begin(); // behind the row of theirs before
        for (const LayoutRow& row : m_theirs.rows) {
            if (m_ours.Find(row.key) == nullptr && IsKept(row, m_base.Find(row.key), Side::Theirs))
                place = std::next(m_rows.insert(place, row));
            else if (const auto found = m_places.find(row.key); found != m_places.end())
                place = std::next(found->second);
        }
        merged.rows.assign(std::make_move_iterator(m_rows.begin()), std::make_move_iterator(m_rows.end()));
        return merged;
    }

    bool HasConflicts() const { return m_hasConflicts; }

private:
    using Conflicts = std::vector<std::string>;

    void TakeOurs(const LayoutRow& ours)
    {
        const LayoutRow* const base = m_base.Find(ours.key);
        const LayoutRow* const theirs = m_theirs.Find(ours.key);
        if (theirs == nullptr && !IsKept(ours, base, Side::Ours))
            return;
        m_rows.push_back(theirs != nullptr ? MergeRows(base, ours, *theirs) : ours);
        m_places[ours.key] = std::prev(m_rows.end());
    }

    // Whether a row that only this side has stays: the other one has deleted it, or never had it.
    bool IsKept(const LayoutRow& row, const LayoutRow* base, Side side)
    {
        if (base == nullptr || row == *base)
            return base == nullptr;
        Print(KeyWords(row.key, Text), {side == Side::Ours ? Text("changed by ours, deleted by theirs")
                                                           : Text("deleted by ours, changed by theirs")});
        return (side == Side::Theirs) == m_takesTheirs;
    }

    LayoutRow MergeRows(const LayoutRow* base, const LayoutRow& ours, const LayoutRow& theirs)
    {
        if (ours == theirs || (base != nullptr && theirs == *base))
            return ours;
        if (base != nullptr && ours == *base)
            return theirs;
        Conflicts conflicts;
        LayoutRow merged = MergeFields(RowFields(), base, ours, theirs, conflicts);
        merged.recordCount = 0;
        merged.runs.clear();
        ForEachRun(
            MergeCounts(base, ours, theirs, conflicts),
            [&](std::size_t i) { return MergeRecords(base, ours, theirs, i); },
            [&](std::size_t first, std::size_t last, const MergedRecord& record) {
                merged.Append(record.value, last + 1 - first);
                for (const std::string& conflict : record.conflicts)
                    conflicts.push_back(ColumnWords(first, last, Text) + "  " + conflict);
            });
        Print(KeyWords(ours.key, Text), conflicts);
        return merged;
    }

    // Records that one side has deleted and the other has changed are a conflict, too.
    std::size_t MergeCounts(const LayoutRow* base, const LayoutRow& ours, const LayoutRow& theirs,
                            Conflicts& conflicts) const
    {
        const auto keeps = [base](const LayoutRow& row, std::size_t from) {
            for (std::size_t i = from; i < row.recordCount; ++i) {
                if (i >= base->recordCount || !(*row.RecordOf(i) == *base->RecordOf(i)))
                    return false;
            }
            return true;
        };
        const auto follows = [&](const LayoutRow& changed, const LayoutRow& other) {
            return base != nullptr && base->recordCount == other.recordCount &&
                   keeps(other, changed.recordCount);
        };
        if (ours.recordCount == theirs.recordCount || follows(ours, theirs))
            return ours.recordCount;
        if (follows(theirs, ours))
            return theirs.recordCount;
        conflicts.push_back(Text("number of records: ours %1, theirs %2",
                                 {std::to_string(ours.recordCount), std::to_string(theirs.recordCount)}));
        return m_takesTheirs ? theirs.recordCount : ours.recordCount;
    }

    struct MergedRecord {
        bool operator==(const MergedRecord& other) const = default;

        LayoutRecord value;
        Conflicts conflicts;
    };

    // The record of a file column that at least one side has.
    MergedRecord MergeRecords(const LayoutRow* base, const LayoutRow& ours, const LayoutRow& theirs,
                              std::size_t i) const
    {
        const LayoutRecord* const our = ours.RecordOf(i);
        const LayoutRecord* const their = theirs.RecordOf(i);
        if (our == nullptr || their == nullptr)
            return {our != nullptr ? *our : *their, {}};
        MergedRecord merged;
        merged.value = MergeFields(RecordFields(), base != nullptr ? base->RecordOf(i) : nullptr, *our,
                                   *their, merged.conflicts);
        return merged;
    }

    // Without a base, the fields in which the sides differ are conflicts.
    template <class Owner>
    Owner MergeFields(std::span<const Field<Owner>> fields, const Owner* base, const Owner& ours,
                      const Owner& theirs, Conflicts& conflicts) const
    {
        Owner merged = ours;
        for (const Field<Owner>& field : fields) {
            const Scalar our = field.get(ours);
            const Scalar their = field.get(theirs);
            if (our == their || (base != nullptr && their == field.get(*base)))
                continue;
            const bool isConflict = base == nullptr || our != field.get(*base);
            if (!isConflict || m_takesTheirs)
                field.set(merged, their);
            if (!isConflict)
                continue;
            const std::string name{field.name};
            conflicts.push_back(
                base == nullptr ? Text("%1: ours %2, theirs %3", {name, JsonText(our), JsonText(their)})
                                : Text("%1: base %2, ours %3, theirs %4",
                                       {name, JsonText(field.get(*base)), JsonText(our), JsonText(their)}));
        }
        return merged;
    }

    void Print(const std::string& row, const Conflicts& conflicts)
    {
        if (conflicts.empty())
            return;
        m_hasConflicts = true;
        if (!row.empty())
            std::cout << row << '\n';
        for (const std::string& conflict : conflicts)
            std::cout << (row.empty() ? "" : "  ") << conflict << '\n';
    }

    const LayoutTable m_base;
    const LayoutTable m_ours;
    const LayoutTable m_theirs;
    const bool m_takesTheirs;
    std::list<LayoutRow> m_rows;
    std::map<QuantityKey, std::list<LayoutRow>::iterator> m_places;
    bool m_hasConflicts = false;
};

// Git gives an empty file where both sides have added theirs. Such a base has no rows; all else is ours.
LayoutContents ReadBase(const char* path, const LayoutContents& ours)
{
    std::error_code error;
    if (std::filesystem::is_regular_file(path, error) && std::filesystem::file_size(path, error) == 0)
        return {ours.head, {}};
    return ReadLayout(path);
}

} // namespace

int MergeLayouts(Words paths, const Options& options)
{
    const bool isOurs = options.Has(Option::Ours);
    const bool isTheirs = options.Has(Option::Theirs);
    if (isOurs && isTheirs)
        throw styleatlas::terminal::UsageError{Text("--ours and --theirs exclude each other")};
    const char* const output = options.Has(Option::Output) ? options.Find(Option::Output) : paths[1];
    LayoutContents ours = ReadLayout(paths[1]);
    LayoutTable base{ReadBase(paths[0], ours)};
    Merge merge{std::move(base), LayoutTable{std::move(ours)}, LayoutTable{ReadLayout(paths[2])},
                isTheirs ? Side::Theirs : Side::Ours};
    const LayoutContents merged = merge.Run();
    if (merge.HasConflicts() && !isOurs && !isTheirs) {
        PrintError(Text("there are conflicts; nothing is written"));
        return Negative;
    }
    SaveLayout(output, merged);
    return Succeeded;
}

} // namespace atlaslayout
