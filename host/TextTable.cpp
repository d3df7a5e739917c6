#include "TextTable.h"

#include <bindings/terminal/Text.h>

#include <algorithm>
#include <ostream>
#include <utility>

namespace atlashost
{

using styleatlas::terminal::DisplayWidth;

constexpr const char* Gap = "  ";

TextTable::TextTable(std::vector<TextColumn> columns) : m_columns{std::move(columns)}
{
    for (const TextColumn& column : m_columns)
        m_widths.push_back(DisplayWidth(column.title));
}

void TextTable::AddRow(std::vector<std::string> cells)
{
    for (std::size_t i = 0; i < m_widths.size(); ++i)
        m_widths[i] = std::max(m_widths[i], DisplayWidth(cells[i]));
    m_rows.push_back(std::move(cells));
}

void TextTable::Print(std::ostream& out) const
{
    std::vector<std::string> titles;
    for (const TextColumn& column : m_columns)
        titles.push_back(column.title);
    PrintRow(out, titles);
    for (const std::vector<std::string>& row : m_rows)
        PrintRow(out, row);
}

void TextTable::PrintRow(std::ostream& out, const std::vector<std::string>& cells) const
{
    for (std::size_t i = 0; i < cells.size(); ++i) {
        const bool isLast = i + 1 == cells.size();
        const std::string filling(isLast ? 0 : m_widths[i] - DisplayWidth(cells[i]), ' ');
        if (m_columns[i].align == Align::Right)
            out << filling << cells[i];
        else
            out << cells[i] << filling;
        out << (isLast ? "\n" : Gap);
    }
}

} // namespace atlashost
