#include "LayoutDocument.h"

#include "JsonFields.h"
#include "Quantities.h"

#include <ostream>

namespace atlaslayout
{
namespace
{

std::string Quoted(std::string_view text)
{
    return JsonText(std::string{text});
}

// "name": value, "name": value
template <class Owner> std::string Members(std::span<const Field<Owner>> fields, const Owner& owner)
{
    std::string members;
    for (const Field<Owner>& field : fields) {
        const Scalar value = field.get(owner);
        if (!field.isOptional || (value != Scalar{false} && value != Scalar{std::int64_t{0}}))
            members += (members.empty() ? "" : ", ") + Quoted(field.name) + ": " + JsonText(value);
    }
    return members;
}

std::string RunText(const LayoutRow::Run& run, std::size_t first)
{
    std::string columns = std::to_string(first);
    if (run.end - first > 1)
        columns += "-" + std::to_string(run.end - 1);
    return "{" + Quoted(ColumnsName) + ": " + Quoted(columns) + ", " + Members(RecordFields(), run.record) +
           "}";
}

void WriteRow(std::ostream& document, const LayoutRow& row)
{
    document << "    {\n";
    if (const std::string symbol = SymbolOf(row.key); !symbol.empty())
        document << "      " << Quoted(SymbolName) << ": " << Quoted(symbol) << ",\n";
    document << "      " << Quoted(KeyName) << ": {" << Members(KeyFields(), row.key) << "},\n      "
             << Members(RowFields(), row) << ",\n      " << Quoted(StylesName) << ": [";
    std::size_t first = 0;
    for (const LayoutRow::Run& run : row.runs) {
        document << (first == 0 ? "\n        " : ",\n        ") << RunText(run, first);
        first = run.end;
    }
    document << (first == 0 ? "]" : "\n      ]") << "\n    }";
}

} // namespace

void WriteDocument(std::ostream& document, const LayoutContents& contents)
{
    document << "{\n  " << Members(HeadFields(), contents.head) << ",\n  " << Quoted(RowsName) << ": [";
    const char* separator = "\n";
    for (const LayoutRow& row : contents.rows) {
        document << separator;
        WriteRow(document, row);
        separator = ",\n";
    }
    document << (contents.rows.empty() ? "]\n}\n" : "\n  ]\n}\n");
}

} // namespace atlaslayout
