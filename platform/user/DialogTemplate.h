// A dialog template: the window and its controls, in tab order.
#pragma once

#include "ByteReader.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

// In dialog units: a quarter of the font's average character width, an eighth of its height. Sizes may be
// negative.
struct DialogRect {
    std::int16_t X;
    std::int16_t Y;
    std::int16_t Width;
    std::int16_t Height;

    bool operator==(const DialogRect&) const = default;
};

struct DialogItem {
    std::int32_t Id; // -1 for a control without a name
    std::uint32_t Style;
    DialogRect Rect;
    std::u16string Class; // the name, also where the template has the number of a standard class
    std::u16string Title; // empty where the template has the number of an icon
};

struct DialogTemplate {
    std::uint32_t Style;
    DialogRect Rect;
    std::u16string Caption;
    std::optional<std::uint16_t> PointSize; // of the font, if the style has DS_SETFONT
    std::vector<DialogItem> Items;
};

// Reads a resource of type Dialog, in the extended form (DIALOGEX). Gives nothing if the bytes end too early,
// are of another form or version, or name a standard class that doesn't exist. Throws std::bad_alloc.
std::optional<DialogTemplate> ReadDialogTemplate(std::span<const std::byte> bytes);
