#include "Commands.h"

#include "MeasuredFile.h"
#include "QuantityNames.h"
#include "StyleWords.h"
#include "Text.h"
#include "TextTable.h"

#include <algorithm>
#include <iostream>
#include <limits>
#include <stdexcept>
#include <string>

namespace atlashost
{
namespace
{

class CurveList
{
public:
    void AddFile(const char* path)
    {
        const std::string shownPath = Printable(path, std::string::npos);
        const std::size_t fileColumn = m_nextColumn++;
        try {
            const MeasuredFile file = ReadMeasuredFile(path);
            for (const std::string& remark : file.remarks)
                Tell(shownPath + ":" + remark);
            m_files.AddRow({std::to_string(fileColumn), std::to_string(file.rows), shownPath});
            for (const MeasuredColumn& column : file.columns)
                AddCurve(fileColumn, shownPath, column);
        } catch (const std::runtime_error& error) {
            Tell(shownPath + ": " + error.what());
            m_status = Failed;
        }
    }

    int Print() const
    {
        if (!m_files.IsEmpty())
            m_files.Print(std::cout);
        if (!m_curves.IsEmpty()) {
            std::cout << '\n';
            m_curves.Print(std::cout);
        }
        return m_status;
    }

private:
    void AddCurve(std::size_t fileColumn, const std::string& shownPath, const MeasuredColumn& column)
    {
        const MeasuredQuantity* const quantity = m_names.Find(column.header);
        if (quantity == nullptr) {
            Tell(shownPath + ": no quantity fits the column \"" + Printable(column.header) +
                 "\", it is left out");
            return;
        }
        constexpr std::size_t LastColumn = std::numeric_limits<std::int16_t>::max();
        const auto styleColumn = static_cast<std::int16_t>(std::min(fileColumn, LastColumn));
        m_curves.AddRow({std::to_string(fileColumn), Printable(column.header), Printable(quantity->symbol),
                         Printable(quantity->name), std::to_string(column.readings),
                         std::to_string(column.missing),
                         StyleCell(StyleOf(styleColumn, *quantity), m_colors)});
    }

    static void Tell(const std::string& message) { std::cerr << ProgramName << ": " << message << '\n'; }

    const QuantityNames m_names;
    const ColorDepth m_colors = ColorsOfOutput();
    TextTable m_files{{{"File", Align::Right}, {"Rows", Align::Right}, {"Path"}}};
    TextTable m_curves{{{"File", Align::Right},
                        {"Curve"},
                        {"Symbol"},
                        {"Name"},
                        {"Readings", Align::Right},
                        {"Missing", Align::Right},
                        {"Style"}}};
    std::size_t m_nextColumn = 0;
    int m_status = Succeeded;
};

} // namespace

int ListCurves(std::span<const char* const> paths)
{
    CurveList list;
    for (const char* const path : paths)
        list.AddFile(path);
    return list.Print();
}

} // namespace atlashost
