#include "Commands.h"

#include "InputFiles.h"
#include "TextTable.h"
#include "Texts.h"

#include <bindings/terminal/StyleWords.h>
#include <bindings/terminal/Text.h>

#include <iostream>
#include <string>

namespace atlashost
{
namespace
{

using styleatlas::terminal::ColorDepth;
using styleatlas::terminal::ColorsOfOutput;
using styleatlas::terminal::Printable;
using styleatlas::terminal::StyleCell;

class CurveList
{
public:
    void AddFile(const InputFile& file)
    {
        const std::string fileColumn = std::to_string(file.fileColumn);
        m_files.AddRow({fileColumn, std::to_string(file.content.rows), file.shownPath});
        for (std::size_t i = 0; i < file.quantities.size(); ++i) {
            const MeasuredQuantity* const quantity = file.quantities[i];
            if (quantity == nullptr)
                continue;
            const MeasuredColumn& column = file.content.columns[i];
            m_curves.AddRow({fileColumn, Printable(column.header), Printable(quantity->symbol),
                             Printable(quantity->name), std::to_string(column.readings),
                             std::to_string(column.missing),
                             StyleCell(styleatlas::StyleOf(file.fileColumn, quantity->key), m_colors, Text)});
        }
    }

    void Print() const
    {
        if (!m_files.IsEmpty())
            m_files.Print(std::cout);
        if (!m_curves.IsEmpty()) {
            std::cout << '\n';
            m_curves.Print(std::cout);
        }
    }

private:
    const ColorDepth m_colors = ColorsOfOutput();
    TextTable m_files{{{Text("File"), Align::Right}, {Text("Rows"), Align::Right}, {Text("Path")}}};
    TextTable m_curves{{{Text("File"), Align::Right},
                        {Text("Curve")},
                        {Text("Symbol")},
                        {Text("Name")},
                        {Text("Readings"), Align::Right},
                        {Text("Missing"), Align::Right},
                        {Text("Style")}}};
};

} // namespace

int ListCurves(std::span<const char* const> paths)
{
    const QuantityNames names;
    CurveList list;
    const int status =
        ForEachFile(paths, names, PrintError, [&list](const InputFile& file) { list.AddFile(file); });
    list.Print();
    return status;
}

} // namespace atlashost
