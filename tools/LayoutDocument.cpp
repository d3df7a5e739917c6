#include "LayoutDocument.h"

#include "JsonFields.h"
#include "Quantities.h"
#include "Texts.h"

#include <bindings/terminal/Text.h>
#include <model/LayoutHead.h>

#include <algorithm>
#include <iterator>
#include <nlohmann/json.hpp>

namespace atlaslayout
{
namespace
{

using styleatlas::terminal::Printable;

struct Position {
    std::size_t line = 1;
    std::size_t column = 0; // of the last character
};

// Counts what the parser takes.
class CountedBytes
{
public:
    using iterator_category = std::input_iterator_tag;
    using value_type = char;
    using difference_type = std::ptrdiff_t;
    using pointer = const char*;
    using reference = char;

    struct Source {
        std::istreambuf_iterator<char> next;
        Position position;
        Position before; // the last character
    };

    explicit CountedBytes(Source* source) : m_source{source} {}

    char operator*() const { return *m_source->next; }
    CountedBytes& operator++()
    {
        const char taken = *m_source->next;
        ++m_source->next;
        Position& position = m_source->position;
        m_source->before = position;
        if (taken == '\n')
            position = {position.line + 1, 0};
        else if ((static_cast<unsigned char>(taken) & 0xC0) != 0x80) // the first byte of a character
            ++position.column;
        return *this;
    }
    bool operator!=(const CountedBytes& /*end*/) const
    {
        return m_source->next != std::istreambuf_iterator<char>{};
    }

private:
    Source* m_source;
};

// Takes the parser's events. What doesn't belong to a layout file ends the parsing at once, so that no
// document can nest deeper than one.
class DocumentHandler
{
public:
    using number_integer_t = std::int64_t;
    using number_unsigned_t = std::uint64_t;
    using number_float_t = double;
    using string_t = std::string;
    using binary_t = nlohmann::json::binary_t;

    DocumentHandler(const CountedBytes::Source& source, LayoutContents& contents)
        : m_source{source}, m_contents{contents}
    {
    }

    bool null() { return Take(m_source.position, std::nullopt); }
    bool boolean(bool value) { return Take(m_source.position, value); }
    bool number_integer(number_integer_t value) { return Take(m_source.before, Scalar{value}); }
    bool number_unsigned(number_unsigned_t value)
    {
        constexpr auto max = std::uint64_t{std::numeric_limits<std::int64_t>::max()};
        return Take(m_source.before, Scalar{static_cast<std::int64_t>(std::min(value, max))});
    }
    bool number_float(number_float_t /*value*/, const string_t& /*text*/)
    {
        return Take(m_source.before, std::nullopt);
    }
    bool string(string_t& value) { return Take(m_source.position, Scalar{std::move(value)}); }
    bool binary(binary_t& /*value*/) { return false; } // not of JSON
    bool start_object(std::size_t /*count*/);
    bool end_object();
    bool start_array(std::size_t /*count*/);
    bool end_array()
    {
        m_places.pop_back();
        return true;
    }
    bool key(string_t& name);
    bool parse_error(std::size_t /*byte*/, const std::string& /*token*/,
                     const nlohmann::json::exception& error);

private:
    enum class Kind { Head, Rows, Row, Key, Styles, Style };
    struct Place {
        Kind kind;
        std::vector<std::string> seen; // the last one is the member at hand
    };

    [[noreturn]] static void Fail(const Position& position, const std::string& reason);
    bool IsIn(Kind kind) const { return !m_places.empty() && m_places.back().kind == kind; }
    bool IsAt(Kind kind, std::string_view member) const
    {
        return IsIn(kind) && m_places.back().seen.back() == member;
    }
    LayoutRow& Row() { return m_contents.rows.back(); }
    bool Take(const Position& position, const std::optional<Scalar>& value);
    void TakeMember(const Scalar& value);
    void TakeColumns(const Scalar& value);
    template <class Use> void WithMembers(Kind kind, Use use);

    const CountedBytes::Source& m_source;
    LayoutContents& m_contents;
    std::vector<Place> m_places;
    LayoutRecord m_record;
    std::size_t m_columns = 0; // of the record
};

void DocumentHandler::Fail(const Position& position, const std::string& reason)
{
    throw std::runtime_error{
        Text("line %1, column %2: %3", {std::to_string(position.line),
                                        std::to_string(std::max<std::size_t>(position.column, 1)), reason})};
}

// Calls use(fields, owner, names of other members, of which all but the symbol have to be there).
template <class Use> void DocumentHandler::WithMembers(Kind kind, Use use)
{
    using Names = std::vector<std::string_view>;
    switch (kind) {
    case Kind::Head:
        return use(HeadFields(), m_contents.head, Names{RowsName});
    case Kind::Row:
        return use(RowFields(), Row(), Names{SymbolName, KeyName, StylesName});
    case Kind::Key:
        return use(KeyFields(), Row().key, Names{});
    default:
        return use(RecordFields(), m_record, Names{ColumnsName});
    }
}

bool DocumentHandler::start_object(std::size_t /*count*/)
{
    if (m_places.empty()) {
        m_places.push_back({Kind::Head, {}});
    } else if (IsIn(Kind::Rows)) {
        m_contents.rows.emplace_back();
        m_places.push_back({Kind::Row, {}});
    } else if (IsAt(Kind::Row, KeyName)) {
        m_places.push_back({Kind::Key, {}});
    } else if (IsIn(Kind::Styles)) {
        m_record = {};
        m_places.push_back({Kind::Style, {}});
    } else {
        Fail(m_source.position, Text("no object belongs here"));
    }
    return true;
}

bool DocumentHandler::end_object()
{
    const std::vector<std::string>& seen = m_places.back().seen;
    const auto require = [&](std::string_view name) {
        if (std::ranges::find(seen, name) == seen.end())
            Fail(m_source.position, Text("\"%1\" is missing in what ends here", {std::string{name}}));
    };
    WithMembers(m_places.back().kind, [&](auto fields, auto&, const auto& others) {
        for (const auto& field : fields) {
            if (!field.isOptional)
                require(field.name);
        }
        for (const std::string_view name : others) {
            if (name != SymbolName)
                require(name);
        }
    });
    if (IsIn(Kind::Style))
        Row().Append(m_record, m_columns);
    m_places.pop_back();
    return true;
}

bool DocumentHandler::start_array(std::size_t /*count*/)
{
    if (IsAt(Kind::Head, RowsName))
        m_places.push_back({Kind::Rows, {}});
    else if (IsAt(Kind::Row, StylesName))
        m_places.push_back({Kind::Styles, {}});
    else
        Fail(m_source.position, Text("no array belongs here"));
    return true;
}

bool DocumentHandler::key(string_t& name)
{
    std::vector<std::string>& seen = m_places.back().seen;
    bool isKnown = false;
    WithMembers(m_places.back().kind, [&](auto fields, auto&, const auto& others) {
        isKnown = std::ranges::any_of(fields, [&](const auto& field) { return field.name == name; }) ||
                  std::ranges::find(others, name) != others.end();
    });
    if (!isKnown)
        Fail(m_source.position, Text("unknown name \"%1\"", {Printable(name)}));
    if (std::ranges::find(seen, name) != seen.end())
        Fail(m_source.position, Text("\"%1\" is there twice", {name}));
    seen.push_back(name);
    return true;
}

bool DocumentHandler::Take(const Position& position, const std::optional<Scalar>& value)
{
    const bool isMember = !m_places.empty() && !IsIn(Kind::Rows) && !IsIn(Kind::Styles) &&
                          !IsAt(Kind::Head, RowsName) && !IsAt(Kind::Row, KeyName) &&
                          !IsAt(Kind::Row, StylesName);
    if (!isMember)
        Fail(position, Text("an object or an array is expected here"));
    if (!value)
        Fail(position, Text("a text, a whole number, true or false is expected here"));
    try {
        TakeMember(*value);
    } catch (const ValueError& error) {
        Fail(position, error.what());
    }
    return true;
}

void DocumentHandler::TakeMember(const Scalar& value)
{
    const std::string& name = m_places.back().seen.back();
    if (IsAt(Kind::Style, ColumnsName))
        return TakeColumns(value);
    if (IsAt(Kind::Row, SymbolName)) {
        if (!std::holds_alternative<std::string>(value))
            throw ValueError{Text("a text is expected here")};
        return;
    }
    WithMembers(m_places.back().kind, [&](auto fields, auto& owner, const auto&) {
        std::ranges::find(fields, name, [](const auto& field) { return field.name; })->set(owner, value);
    });
}

void DocumentHandler::TakeColumns(const Scalar& value)
{
    const std::string* const text = std::get_if<std::string>(&value);
    const auto range = text != nullptr ? ParseRange(*text, k_MaxStoredRecords - 1) : std::nullopt;
    const std::size_t next = Row().recordCount;
    if (!range || static_cast<std::size_t>(range->first) != next)
        throw ValueError{Text("file columns from %1 on, as \"%1\" or \"%1-31\", are expected here",
                              {std::to_string(next)})};
    m_columns = static_cast<std::size_t>(range->last) + 1 - next;
}

// The parser's reason stands behind its own idea of the place, which counts bytes.
bool DocumentHandler::parse_error(std::size_t /*byte*/, const std::string& /*token*/,
                                  const nlohmann::json::exception& error)
{
    std::string reason = error.what();
    for (const std::string_view end : {"] ", ": "}) {
        if (const std::size_t place = reason.find(end); place != std::string::npos)
            reason.erase(0, place + end.size());
    }
    reason.erase(std::min(reason.find("; last read: "), reason.size()));
    Fail(m_source.position, Text("not JSON: %1", {Printable(reason)}));
}

} // namespace

LayoutContents ReadDocument(std::istream& document)
{
    LayoutContents contents;
    CountedBytes::Source source{std::istreambuf_iterator<char>{document}, {}, {}};
    DocumentHandler handler{source, contents};
    nlohmann::json::sax_parse(CountedBytes{&source}, CountedBytes{&source}, &handler);
    return contents;
}

} // namespace atlaslayout
