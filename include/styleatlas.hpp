/** @file
 * The interface of the style atlas library in the types of C++17. It wraps styleatlas.h, whose contract
 * applies here too, and adds nothing to link.
 *
 *     styleatlas::SetApplication(u"AirLab");
 *     if (const auto style = styleatlas::StyleOf(column, {quantity, subQuantity, index, device, flags}))
 *         Draw(curve, *style);
 *
 * String views need no terminating zero: they are copied, which can throw std::bad_alloc. A text ends at its
 * first zero. Nothing else here throws.
 */
#ifndef STYLEATLAS_HPP
#define STYLEATLAS_HPP

#include "styleatlas.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// The styles of curves.
namespace styleatlas
{

constexpr int FileColumns = STYLEATLAS_FILE_COLUMNS;     ///< Valid file columns are 0 to 31.
constexpr std::uint16_t NoDevice = STYLEATLAS_NO_DEVICE; ///< The device of a quantity without one.

/// ::StyleAtlasSymbolShape as a class. Draw no symbol for any other number.
enum class SymbolShape : std::int16_t {
    None = STYLEATLAS_SHAPE_NONE,            ///< no symbol
    Cross = STYLEATLAS_SHAPE_CROSS,          ///< two diagonals
    Triangle = STYLEATLAS_SHAPE_TRIANGLE,    ///< point up
    Triangle2 = STYLEATLAS_SHAPE_TRIANGLE_2, ///< point down
    Square = STYLEATLAS_SHAPE_SQUARE,        ///< its inside is white unless it is filled
    Plus = STYLEATLAS_SHAPE_PLUS,            ///< upright strokes
    Asterisk = STYLEATLAS_SHAPE_ASTERISK,    ///< a plus and a cross
    Diamond = STYLEATLAS_SHAPE_DIAMOND,      ///< a kite
    Circle = STYLEATLAS_SHAPE_CIRCLE,        ///< its inside is white unless it is filled
    Point = STYLEATLAS_SHAPE_POINT           ///< a disc of half the size
};

/// ::StyleAtlasSymbolFill as a class. Draw an empty symbol for any other number.
enum class SymbolFill : std::int16_t {
    Filled = STYLEATLAS_FILL_FILLED,              ///< the inside has the symbol's colour
    Empty = STYLEATLAS_FILL_EMPTY,                ///< the outline alone
    EmptyWithDot = STYLEATLAS_FILL_EMPTY_WITH_DOT ///< the outline, and a dot in the middle
};

/// ::StyleAtlasLineStyle as a class. Draw a solid line for any other number.
enum class LineStyle : std::int16_t {
    Solid = STYLEATLAS_LINE_SOLID,             ///< without gaps
    Dashed = STYLEATLAS_LINE_DASHED,           ///< dashes
    Dotted = STYLEATLAS_LINE_DOTTED,           ///< dots
    DashDotted = STYLEATLAS_LINE_DASH_DOTTED,  ///< a dash and a dot
    DashDotDot = STYLEATLAS_LINE_DASH_DOT_DOT, ///< a dash and two dots
    None = STYLEATLAS_LINE_NONE                ///< no line
};

/// ::StyleAtlasEditResult as a class.
enum class EditResult {
    NotShown = STYLEATLAS_EDIT_NOT_SHOWN, ///< the editor cannot be shown
    Ok = STYLEATLAS_EDIT_OK,              ///< the new styles are in force
    Cancelled = STYLEATLAS_EDIT_CANCELLED ///< the table is unchanged
};

/// A colour, as the table stores it.
struct Color {
    std::uint32_t value = 0; ///< as stored: red in the lowest byte, then green, then blue

    /// @returns the red, 0 to 255
    constexpr std::uint8_t Red() const noexcept { return STYLEATLAS_RED(value); }
    /// @returns the green, 0 to 255
    constexpr std::uint8_t Green() const noexcept { return STYLEATLAS_GREEN(value); }
    /// @returns the blue, 0 to 255
    constexpr std::uint8_t Blue() const noexcept { return STYLEATLAS_BLUE(value); }
};

/// The identity of a quantity, as the unit library numbers it.
struct Key {
    std::uint16_t quantity = 0;      ///< the quantity
    std::uint8_t subQuantity = 0;    ///< kind of the value, for instance an average
    std::uint8_t index = 0;          ///< further number
    std::uint16_t device = NoDevice; ///< place of the measurement
    std::uint32_t flags = 0;         ///< further bits
};

/// How one curve is drawn.
struct Style {
    Color symbolColor;                           ///< colour of the symbol
    SymbolShape symbolShape = SymbolShape::None; ///< what the symbol is
    std::int16_t symbolSize = 0;                 ///< device units of the drawing; a file can hold any number
    SymbolFill symbolFill = SymbolFill::Filled;  ///< what is inside the symbol
    Color lineColor;                             ///< as stored; draw with DrawnLineColor()
    LineStyle lineStyle = LineStyle::Solid;      ///< dashes of the line
    std::int16_t lineWidth = 0;                  ///< device units of the drawing; a file can hold any number
    bool useSymbolColor = false;                 ///< the user wants the line in the symbol's colour

    /// @returns the colour in which the line is to be drawn
    constexpr Color DrawnLineColor() const noexcept { return useSymbolColor ? symbolColor : lineColor; }
};

/// Sets the name of the host and loads the table; called once, before all else.
/// @param name selects the settings and the folder of the layout file; copied
/// @throws std::bad_alloc, and nothing has happened
inline void SetApplication(std::u16string_view name)
{
    StyleAtlasSetApplication(std::u16string{name}.c_str());
}

/// Gets the style of a curve: that of the row that fits the quantity best.
/// @param fileColumn counted from 0; may be any number, and has styles below FileColumns
/// @param key the quantity
/// @returns the style, or nothing if the table has none for the quantity or the file column
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

/// Opens the editor above a window and returns when the user has closed it. After EditResult::Ok every style
/// is stale.
/// @param parentWindow the desktop's id of the window, QWidget::winId() in a host with Qt; 0 for none
/// @returns what became of the editor
inline EditResult Edit(std::uintptr_t parentWindow = 0) noexcept
{
    return static_cast<EditResult>(EditStyleAtlas(parentWindow));
}

/// Loads the table again. Every style is stale.
inline void Reload() noexcept
{
    ReloadStyleAtlas();
}

/// Switches to another user's settings and loads that user's table. Every style is stale.
/// @param userRoot the user's root below HKEY_USERS; copied, as is subKey
/// @param subKey the key below that root
/// @throws std::bad_alloc, and nothing has happened
inline void ChangeUser(std::u16string_view userRoot, std::u16string_view subKey)
{
    StyleAtlasChangeUserInfo(std::u16string{userRoot}.c_str(), std::u16string{subKey}.c_str());
}

} // namespace styleatlas

#endif
