// What stands in a layout file.
#pragma once

#include <model/QuantityDesc.h>
#include <styleatlas.hpp>

#include <cstddef>
#include <map>
#include <string>
#include <tuple>
#include <vector>

namespace atlaslayout
{

struct LayoutRecord {
    LayoutRecord() = default;
    explicit LayoutRecord(const k_LineDef& stored);
    void CopyTo(k_LineDef& stored) const;
    bool operator==(const LayoutRecord& other) const;

    WORD reserved = 0;
    styleatlas::Style style;
};

struct LayoutRow {
    LayoutRow() = default;
    explicit LayoutRow(const k_QuantityDesc& stored);
    bool operator==(const LayoutRow& other) const = default;

    // The record of a file column; null from recordCount on.
    const LayoutRecord* RecordOf(std::size_t column) const;

    // Appends a record for each of a number of file columns.
    void Append(const LayoutRecord& record, std::size_t columns = 1);

    QuantityKey key;
    BYTE level = 0;
    bool reservedFlag = false;
    std::size_t recordCount = 0;

    // Neighbouring equal records are kept once, so that a sparse file takes no more memory than disk space.
    struct Run {
        bool operator==(const Run& other) const = default;

        std::size_t end; // one past the last file column
        LayoutRecord record;
    };
    std::vector<Run> runs;
};

struct LayoutHead {
    bool operator==(const LayoutHead& other) const = default;

    DWORD version = 1;
    DWORD columnCount = k_MaxFileColumns;
};

struct LayoutContents {
    LayoutHead head;
    std::vector<LayoutRow> rows;
};

// Contents as the style atlas takes them: of several rows with one key, the last in the place of the first.
struct LayoutTable : LayoutContents {
    explicit LayoutTable(LayoutContents contents);

    // Null if there is none.
    const LayoutRow* Find(const QuantityKey& key) const
    {
        const auto found = positions.find(key);
        return found == positions.end() ? nullptr : &rows[found->second];
    }

    std::map<QuantityKey, std::size_t> positions;
};

} // namespace atlaslayout
