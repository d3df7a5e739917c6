#include "InputFiles.h"

#include "Commands.h"
#include "Text.h"

#include <algorithm>
#include <iostream>
#include <limits>
#include <stdexcept>

namespace atlashost
{
namespace
{

void FindQuantities(InputFile& file, const QuantityNames& names, const Teller& tell)
{
    for (const MeasuredColumn& column : file.content.columns) {
        file.quantities.push_back(names.Find(column.header));
        if (file.quantities.back() == nullptr)
            tell(file.shownPath + ": no quantity fits the column \"" + Printable(column.header) +
                 "\", it is left out");
    }
}

} // namespace

std::int16_t InputFile::StyleColumn() const
{
    constexpr std::size_t LastColumn = std::numeric_limits<std::int16_t>::max();
    return static_cast<std::int16_t>(std::min(fileColumn, LastColumn));
}

void Tell(const std::string& message)
{
    std::cerr << ProgramName << ": " << message << '\n';
}

int ForEachFile(std::span<const char* const> paths, const QuantityNames& names, const Teller& tell,
                const std::function<void(InputFile&)>& handle)
{
    int status = Succeeded;
    for (std::size_t i = 0; i < paths.size(); ++i) {
        InputFile file{i, Printable(paths[i], std::string::npos), {}, {}};
        try {
            file.content = ReadMeasuredFile(paths[i]);
            for (const std::string& remark : file.content.remarks)
                tell(file.shownPath + ":" + remark);
            FindQuantities(file, names, tell);
            handle(file);
        } catch (const std::runtime_error& error) {
            tell(file.shownPath + ": " + error.what());
            status = Failed;
        }
    }
    return status;
}

} // namespace atlashost
