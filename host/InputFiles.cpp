#include "InputFiles.h"

#include "Commands.h"

#include <bindings/terminal/Text.h>

#include <iostream>
#include <stdexcept>

namespace atlashost
{
namespace
{

using styleatlas::terminal::NoLimit;
using styleatlas::terminal::Printable;

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

void Tell(const std::string& message)
{
    std::cerr << ProgramName << ": " << message << '\n';
}

int ForEachFile(std::span<const char* const> paths, const QuantityNames& names, const Teller& tell,
                const std::function<void(InputFile&)>& handle)
{
    int status = Succeeded;
    int fileColumn = 0;
    for (const char* const path : paths) {
        InputFile file{fileColumn++, Printable(path, NoLimit), {}, {}};
        try {
            file.content = ReadMeasuredFile(path);
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
