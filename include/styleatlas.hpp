// styleatlas.hpp: the interface of the style atlas library in the types of C++17. It wraps styleatlas.h,
// whose contract applies here too, and adds nothing to link.
//
//     styleatlas::SetApplication(u"AirLab");
//     if (const auto style = styleatlas::StyleOf(column, {quantity, subQuantity, index, device, flags}))
//         Draw(curve, *style);
//
// String views need no terminating zero: they are copied, which can throw std::bad_alloc. A text ends at its
// first zero. Nothing else here throws.
#ifndef STYLEATLAS_HPP
#define STYLEATLAS_HPP

#include "styleatlas.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace styleatlas
{

constexpr int FileColumns = STYLEATLAS_FILE_COLUMNS;
constexpr std::uint16_t NoDevice = STYLEATLAS_NO_DEVICE;

// A layout file can hold any other number for these three; draw no symbol or line for it.
enum class SymbolShape : std::int16_t {
    None = STYLEATLAS_SHAPE_NONE,
    Cross = STYLEATLAS_SHAPE_CROSS,
    Triangle = STYLEATLAS_SHAPE_TRIANGLE,    // point up
    Triangle2 = STYLEATLAS_SHAPE_TRIANGLE_2, // point down
    Square = STYLEATLAS_SHAPE_SQUARE,
    Plus = STYLEATLAS_SHAPE_PLUS,
    Asterisk = STYLEATLAS_SHAPE_ASTERISK,
    Diamond = STYLEATLAS_SHAPE_DIAMOND,
    Circle = STYLEATLAS_SHAPE_CIRCLE,
    Point = STYLEATLAS_SHAPE_POINT
};
enum class SymbolFill : std::int16_t {
    Filled = STYLEATLAS_FILL_FILLED,
    Empty = STYLEATLAS_FILL_EMPTY,
    EmptyWithDot = STYLEATLAS_FILL_EMPTY_WITH_DOT
};
enum class LineStyle : std::int16_t {
    Solid = STYLEATLAS_LINE_SOLID,
    Dashed = STYLEATLAS_LINE_DASHED,
    Dotted = STYLEATLAS_LINE_DOTTED,
    DashDotted = STYLEATLAS_LINE_DASH_DOTTED,
    DashDotDot = STYLEATLAS_LINE_DASH_DOT_DOT,
    None = STYLEATLAS_LINE_NONE
};

enum class EditResult {
    NotShown = STYLEATLAS_EDIT_NOT_SHOWN,
    Ok = STYLEATLAS_EDIT_OK,
    Cancelled = STYLEATLAS_EDIT_CANCELLED
};

struct Color {
    std::uint32_t value = 0; // as stored; the highest byte has no meaning

    constexpr std::uint8_t Red() const noexcept { return STYLEATLAS_RED(value); }
    constexpr std::uint8_t Green() const noexcept { return STYLEATLAS_GREEN(value); }
    constexpr std::uint8_t Blue() const noexcept { return STYLEATLAS_BLUE(value); }
};

// The identity of a quantity, as the unit library numbers it.
struct Key {
    std::uint16_t quantity = 0;
    std::uint8_t subQuantity = 0;
    std::uint8_t index = 0;
    std::uint16_t device = NoDevice;
    std::uint32_t flags = 0;
};

struct Style {
    Color symbolColor;
    SymbolShape symbolShape = SymbolShape::None;
    std::int16_t symbolSize = 0; // device units of the drawing, as is lineWidth; a file can hold any number
    SymbolFill symbolFill = SymbolFill::Filled;
    Color lineColor; // as stored; draw with DrawnLineColor
    LineStyle lineStyle = LineStyle::Solid;
    std::int16_t lineWidth = 0;
    bool useSymbolColor = false; // the user wants the line in the symbol's colour

    constexpr Color DrawnLineColor() const noexcept { return useSymbolColor ? symbolColor : lineColor; }
};

// Sets the name of the host and loads the table; called once, before all else.
inline void SetApplication(std::u16string_view name)
{
    StyleAtlasSetApplication(std::u16string{name}.c_str());
}

// The style of a curve, or nothing if the table has none for the quantity or the file column. fileColumn may
// be any number.
[[nodiscard]] inline std::optional<Style> StyleOf(int fileColumn, const Key& key) noexcept
{
    if (fileColumn < 0 || fileColumn >= FileColumns)
        return std::nullopt;
    std::int16_t shape = 0;
    std::int16_t fill = 0;
    std::int16_t line = 0;
    std::uint8_t useSymbolColor = 0;
    Style style;
    if (GetStyleAtlas(static_cast<std::int16_t>(fileColumn), key.quantity, key.subQuantity, key.index,
                      key.device, key.flags, &style.symbolColor.value, &shape, &style.symbolSize, &fill,
                      &style.lineColor.value, &line, &style.lineWidth,
                      &useSymbolColor) == STYLEATLAS_NOT_FOUND)
        return std::nullopt;
    style.symbolShape = static_cast<SymbolShape>(shape);
    style.symbolFill = static_cast<SymbolFill>(fill);
    style.lineStyle = static_cast<LineStyle>(line);
    style.useSymbolColor = useSymbolColor != 0;
    return style;
}

// Opens the editor above a window and returns when the user has closed it. After Ok every style is stale.
inline EditResult Edit(std::uintptr_t parentWindow = 0) noexcept
{
    return static_cast<EditResult>(EditStyleAtlas(parentWindow));
}

// Loads the table again. Every style is stale.
inline void Reload() noexcept
{
    ReloadStyleAtlas();
}

// Switches to another user's settings and loads that user's table. Every style is stale.
inline void ChangeUser(std::u16string_view userRoot, std::u16string_view subKey)
{
    StyleAtlasChangeUserInfo(std::u16string{userRoot}.c_str(), std::u16string{subKey}.c_str());
}

} // namespace styleatlas

#endif
