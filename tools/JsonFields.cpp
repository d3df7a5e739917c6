#include "JsonFields.h"

#include "Texts.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <limits>
#include <nlohmann/json.hpp>
#include <optional>
#include <type_traits>

namespace atlaslayout
{
namespace
{

using styleatlas::Color;
using styleatlas::Style;

constexpr std::string_view Shapes[] = {"none", "cross",    "triangle", "triangle2", "square",
                                       "plus", "asterisk", "diamond",  "circle",    "point"};
constexpr std::string_view Fills[] = {"filled", "empty", "emptyWithDot"};
constexpr std::string_view Lines[] = {"solid", "dashed", "dotted", "dashDotted", "dashDotDot", "none"};

std::int64_t ToNumber(const Scalar& value, std::int64_t min, std::int64_t max)
{
    const std::int64_t* const number = std::get_if<std::int64_t>(&value);
    if (number == nullptr || *number < min || *number > max)
        throw ValueError{Text("a whole number from %1 to %2 is expected here",
                              {std::to_string(min), std::to_string(max)})};
    return *number;
}

// "#A52A00", with two digits more where the unused byte is not 0.
std::string ToText(Color color)
{
    char text[sizeof "#00000000"];
    const unsigned unused = color.value >> 24;
    std::snprintf(text, sizeof text, unused == 0 ? "#%02X%02X%02X" : "#%02X%02X%02X%02X", color.Red(),
                  color.Green(), color.Blue(), unused);
    return text;
}

Color ToColor(const Scalar& value)
{
    const std::string* const text = std::get_if<std::string>(&value);
    const bool hasLength = text != nullptr && (text->size() == 7 || text->size() == 9);
    if (hasLength && text->front() == '#' &&
        text->find_first_not_of("0123456789abcdefABCDEF", 1) == std::string::npos) {
        std::uint32_t color = 0;
        for (std::size_t i = 1; i < text->size(); i += 2) {
            std::uint32_t byte = 0;
            std::from_chars(text->data() + i, text->data() + i + 2, byte, 16);
            color |= byte << (4 * (i - 1));
        }
        return {color};
    }
    throw ValueError{Text("a colour as \"#A52A00\" is expected here")};
}

// The names of numbers from 0 on; other numbers stand for themselves.
template <class Number> Scalar ToName(std::span<const std::string_view> names, Number value)
{
    const int number = static_cast<int>(value);
    if (number >= 0 && number < static_cast<int>(names.size()))
        return std::string{names[static_cast<std::size_t>(number)]};
    return std::int64_t{number};
}

short FromName(std::span<const std::string_view> names, const Scalar& value)
{
    if (const std::string* const text = std::get_if<std::string>(&value)) {
        const auto found = std::ranges::find(names, *text);
        if (found != names.end())
            return static_cast<short>(found - names.begin());
        std::string all;
        for (const std::string_view name : names)
            all.append(all.empty() ? "" : ", ").append(name);
        throw ValueError{Text("one of these, or a number, is expected here: %1", {all})};
    }
    using Limits = std::numeric_limits<short>;
    return static_cast<short>(ToNumber(value, Limits::min(), Limits::max()));
}

// The kind of a field follows from the type of the member that MemberOf(owner) refers to.
template <class Owner, auto MemberOf>
constexpr Field<Owner> FieldOf(std::string_view name, bool isOptional = false)
{
    using Member = std::remove_reference_t<decltype(MemberOf(std::declval<Owner&>()))>;
    const auto get = [](const Owner& owner) -> Scalar {
        const Member& member = MemberOf(const_cast<Owner&>(owner));
        if constexpr (std::is_same_v<Member, bool>)
            return member;
        else if constexpr (std::is_same_v<Member, Color>)
            return ToText(member);
        else
            return static_cast<std::int64_t>(member);
    };
    const auto set = [](Owner& owner, const Scalar& value) {
        Member& member = MemberOf(owner);
        if constexpr (std::is_same_v<Member, bool>) {
            const bool* const isSet = std::get_if<bool>(&value);
            if (isSet == nullptr)
                throw ValueError{Text("true or false is expected here")};
            member = *isSet;
        } else if constexpr (std::is_same_v<Member, Color>) {
            member = ToColor(value);
        } else {
            using Limits = std::numeric_limits<Member>;
            member = static_cast<Member>(ToNumber(value, Limits::min(), Limits::max()));
        }
    };
    return {name, isOptional, get, set};
}

// An enumeration of the style, by the names in Names.
template <auto Member, const auto& Names> constexpr Field<LayoutRecord> NamedField(std::string_view name)
{
    return {name, false, [](const LayoutRecord& record) { return ToName(Names, record.style.*Member); },
            [](LayoutRecord& record, const Scalar& value) {
                auto& member = record.style.*Member;
                member = std::remove_reference_t<decltype(member)>{FromName(Names, value)};
            }};
}

constexpr Field<LayoutHead> OfHead[] = {
    FieldOf<LayoutHead, [](LayoutHead& head) -> DWORD& { return head.version; }>("version"),
    FieldOf<LayoutHead, [](LayoutHead& head) -> DWORD& { return head.columnCount; }>("fileColumns"),
};
constexpr Field<LayoutRow> OfRow[] = {
    FieldOf<LayoutRow, [](LayoutRow& row) -> BYTE& { return row.level; }>("level"),
    FieldOf<LayoutRow, [](LayoutRow& row) -> bool& { return row.reservedFlag; }>("reserved", true),
};
constexpr Field<QuantityKey> OfKey[] = {
    FieldOf<QuantityKey, [](QuantityKey& key) -> WORD& { return key.Quantity; }>("quantity"),
    FieldOf<QuantityKey, [](QuantityKey& key) -> WORD& { return key.SubQuantity; }>("subQuantity"),
    FieldOf<QuantityKey, [](QuantityKey& key) -> BYTE& { return key.Index; }>("index"),
    FieldOf<QuantityKey, [](QuantityKey& key) -> short& { return key.Device; }>("device"),
    FieldOf<QuantityKey, [](QuantityKey& key) -> DWORD& { return key.Flags; }>("flags"),
};
constexpr Field<LayoutRecord> OfRecord[] = {
    NamedField<&Style::symbolShape, Shapes>("shape"),
    NamedField<&Style::symbolFill, Fills>("fill"),
    FieldOf<LayoutRecord, [](LayoutRecord& record) -> std::int16_t& { return record.style.symbolSize; }>(
        "size"),
    FieldOf<LayoutRecord, [](LayoutRecord& record) -> Color& { return record.style.symbolColor; }>("color"),
    NamedField<&Style::lineStyle, Lines>("line"),
    FieldOf<LayoutRecord, [](LayoutRecord& record) -> std::int16_t& { return record.style.lineWidth; }>(
        "width"),
    FieldOf<LayoutRecord, [](LayoutRecord& record) -> Color& { return record.style.lineColor; }>("lineColor"),
    FieldOf<LayoutRecord, [](LayoutRecord& record) -> bool& { return record.style.useSymbolColor; }>(
        "useSymbolColor"),
    FieldOf<LayoutRecord, [](LayoutRecord& record) -> WORD& { return record.reserved; }>("reserved", true),
};

} // namespace

std::string JsonText(const Scalar& value)
{
    return std::visit([](const auto& held) { return nlohmann::json(held).dump(); }, value);
}

std::span<const Field<LayoutHead>> HeadFields()
{
    return OfHead;
}

std::span<const Field<LayoutRow>> RowFields()
{
    return OfRow;
}

std::span<const Field<QuantityKey>> KeyFields()
{
    return OfKey;
}

std::span<const Field<LayoutRecord>> RecordFields()
{
    return OfRecord;
}

} // namespace atlaslayout
