#include "ColorScheme.h"

#include <QGuiApplication>
#include <algorithm>
#include <utility>

namespace gdi
{

namespace
{

constexpr int darkest = 128; // of a light ground, of 255

struct RoleColor {
    QPalette::ColorRole Role;
    QRgb Color;
};

constexpr RoleColor lightColors[] = {
    {QPalette::Window, 0xFFEFEFEF},      {QPalette::WindowText, 0xFF000000},
    {QPalette::Base, 0xFFFFFFFF},        {QPalette::AlternateBase, 0xFFF7F7F7},
    {QPalette::Text, 0xFF000000},        {QPalette::PlaceholderText, 0x80000000},
    {QPalette::Button, 0xFFEFEFEF},      {QPalette::ButtonText, 0xFF000000},
    {QPalette::BrightText, 0xFFFFFFFF},  {QPalette::Light, 0xFFFFFFFF},
    {QPalette::Midlight, 0xFFCACACA},    {QPalette::Mid, 0xFFB8B8B8},
    {QPalette::Dark, 0xFF9F9F9F},        {QPalette::Shadow, 0xFF767676},
    {QPalette::Highlight, 0xFF308CC6},   {QPalette::HighlightedText, 0xFFFFFFFF},
    {QPalette::Link, 0xFF0000FF},        {QPalette::LinkVisited, 0xFFFF00FF},
    {QPalette::ToolTipBase, 0xFFFFFFDC}, {QPalette::ToolTipText, 0xFF000000},
};

constexpr RoleColor disabledColors[] = {
    {QPalette::WindowText, 0xFF808080}, {QPalette::Text, 0xFF808080}, {QPalette::ButtonText, 0xFF808080},
    {QPalette::Base, 0xFFEFEFEF},       {QPalette::Dark, 0xFFBEBEBE}, {QPalette::Shadow, 0xFFB1B1B1},
    {QPalette::Highlight, 0xFF919191},
};

QPalette MakeLightPalette()
{
    QPalette palette;
    for (const auto& [role, color] : lightColors)
        palette.setColor(role, QColor::fromRgba(color));
    for (const auto& [role, color] : disabledColors)
        palette.setColor(QPalette::Disabled, role, QColor::fromRgba(color));
    return palette;
}

int GreyOf(const QPalette& palette, QPalette::ColorRole role)
{
    return qGray(palette.color(QPalette::Active, role).rgb());
}

bool IsDark(const QPalette& palette)
{
    constexpr std::pair<QPalette::ColorRole, QPalette::ColorRole> grounds[] = {
        {QPalette::Base, QPalette::Text},
        {QPalette::Window, QPalette::WindowText},
        {QPalette::Button, QPalette::ButtonText},
    };
    if (GreyOf(palette, QPalette::Base) < darkest)
        return true;
    return std::ranges::any_of(grounds, [&palette](const auto& pair) {
        return GreyOf(palette, pair.first) < GreyOf(palette, pair.second);
    });
}

} // namespace

bool HasOwnPalette()
{
    return IsDark(QGuiApplication::palette());
}

QPalette WindowPalette()
{
    static const QPalette light = MakeLightPalette();
    const QPalette desktop = QGuiApplication::palette();
    return IsDark(desktop) ? light : desktop;
}

} // namespace gdi
