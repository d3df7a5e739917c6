#include "InputFiles.h"

#include "Commands.h"
#include "Texts.h"

#include <bindings/terminal/Text.h>

#include <stdexcept>

namespace atlashost
{
namespace
{

using styleatlas::terminal::NoLimit;
using styleatlas::terminal::Printable;

void FindQuantities(InputFile& file, const QuantityNames& names, const Report& report)
{
    for (const MeasuredColumn& column : file.content.columns) {
        file.quantities.push_back(names.Find(column.header));
        if (file.quantities.back() == nullptr)
            report(Text("%1: no quantity fits the column \"%2\", it is left out",
                        {file.shownPath, Printable(column.header)}));
    }
}

} // namespace

int ForEachFile(std::span<const char* const> paths, const QuantityNames& names, const Report& report,
                const std::function<void(InputFile&)>& handle)
{
    int status = Succeeded;
    int fileColumn = 0;
    for (const char* const path : paths) {
        InputFile file{fileColumn++, Printable(path, NoLimit), {}, {}};
        try {
            file.content = ReadMeasuredFile(path);
            for (const std::string& remark : file.content.remarks)
                report(file.shownPath + ":" + remark);
            FindQuantities(file, names, report);
            handle(file);
        } catch (const std::runtime_error& error) {
            report(file.shownPath + ": " + error.what());
            status = Failed;
        }
    }
    return status;
}

} // namespace atlashost
