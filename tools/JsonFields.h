// The fields of a layout file, as its JSON document names them. See docs/layout-format.md.
#pragma once

#include "LayoutContents.h"

#include <cstdint>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>

namespace atlaslayout
{

using Scalar = std::variant<std::int64_t, bool, std::string>;

// As it stands in a document.
std::string JsonText(const Scalar& value);

// What is wrong with a value.
class ValueError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

template <class Owner> struct Field {
    std::string_view name;
    bool isOptional; // left out where it is 0 or false
    Scalar (*get)(const Owner& owner);
    void (*set)(Owner& owner, const Scalar& value); // throws ValueError
};

// In the order of the document.
std::span<const Field<LayoutHead>> HeadFields();
std::span<const Field<LayoutRow>> RowFields();
std::span<const Field<QuantityKey>> KeyFields();
std::span<const Field<LayoutRecord>> RecordFields();

// The members that are no fields.
constexpr std::string_view RowsName = "rows";
constexpr std::string_view SymbolName = "symbol"; // of the quantity, for the reader; the key counts
constexpr std::string_view KeyName = "key";
constexpr std::string_view StylesName = "styles";
constexpr std::string_view ColumnsName = "columns"; // "3" or "0-31"

} // namespace atlaslayout
