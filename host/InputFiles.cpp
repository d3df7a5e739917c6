#include "InputFiles.h"

#include "Commands.h"
#include "Texts.h"

#include <bindings/terminal/Text.h>

#include <stdexcept>
#include <string_view>

namespace atlashost
{
namespace
{

using styleatlas::terminal::NoLimit;
using styleatlas::terminal::Printable;

// A heading may have its unit behind it, in brackets: "Wind [mph]".
const MeasuredQuantity* QuantityOf(std::string_view header, const QuantityNames& names)
{
    const MeasuredQuantity* const quantity = names.Find(header);
    if (quantity != nullptr)
        return quantity;
    return names.Find(WithoutBlanks(header.substr(0, header.find_first_of("[("))));
}

void FindQuantities(InputFile& file, const QuantityNames& names, const Report& report)
{
    for (const MeasuredColumn& column : file.content.columns) {
        file.quantities.push_back(QuantityOf(column.header, names));
        if (file.quantities.back() == nullptr)
            report(Text("%1: no quantity fits the column \"%2\", it is left out",
                        {file.shownPath, Printable(column.header)}));
    }
}

} // namespace

int ForEachFile(std::span<const char* const> paths, const QuantityNames& names, const Report& report,
                const std::function<void(InputFile&)>& handle, const FileProgress& progress)
{
    const auto isQuantity = [&names](std::string_view heading) {
        return QuantityOf(heading, names) != nullptr;
    };
    int status = Succeeded;
    int fileColumn = 0;
    for (const char* const path : paths) {
        InputFile file{fileColumn++, Printable(path, NoLimit), {}, {}};
        Progress progressOfFile;
        if (progress)
            progressOfFile = [&](std::size_t done, std::size_t all) {
                return progress(file.shownPath, done, all);
            };
        try {
            file.content = ReadMeasuredFile(path, isQuantity, progressOfFile);
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
