// Rows of text in aligned columns.
#pragma once

#include <cstddef>
#include <iosfwd>
#include <string>
#include <vector>

namespace atlashost
{

enum class Align { Left, Right };

struct TextColumn {
    std::string title;
    Align align = Align::Left;
};

// The last column is not padded, so that its cells may hold escape sequences.
class TextTable
{
public:
    explicit TextTable(std::vector<TextColumn> columns);

    // One cell for each column.
    void AddRow(std::vector<std::string> cells);
    bool IsEmpty() const { return m_rows.empty(); }

    // Writes the titles and the rows, two blanks between columns.
    void Print(std::ostream& out) const;

private:
    void PrintRow(std::ostream& out, const std::vector<std::string>& cells) const;

    std::vector<TextColumn> m_columns;
    std::vector<std::size_t> m_widths; // terminal columns
    std::vector<std::vector<std::string>> m_rows;
};

} // namespace atlashost
