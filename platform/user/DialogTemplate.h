// A dialog as its template describes it: the window and its controls, in tab order.
#pragma once

#include "ByteReader.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

// In dialog units: a quarter of the font's average character width, an eighth of its height. Nothing keeps a
// template from negative sizes.
struct DialogRect {
    std::int16_t X;
    std::int16_t Y;
    std::int16_t Width;
    std::int16_t Height;

    bool operator==(const DialogRect&) const = default;
};

struct DialogFont {
    std::uint16_t PointSize;
    std::uint16_t Weight; // 100 to 900; 0 for the face's own
    bool Italic;
    std::uint8_t CharSet;
    std::u16string Face;
};

struct DialogItem {
    std::int32_t Id; // -1 for a control that nobody asks for
    std::uint32_t Style;
    std::uint32_t ExStyle;
    std::uint32_t HelpId;
    DialogRect Rect;
    std::u16string Class;            // by name also where the template has the number of a standard class
    ResourceName Title;              // a number where a static shows an icon or a picture
    std::vector<std::byte> Creation; // handed to the control as it is created; mostly empty
};

struct DialogTemplate {
    std::uint32_t Style;
    std::uint32_t ExStyle;
    std::uint32_t HelpId;
    DialogRect Rect;
    ResourceName Menu;
    ResourceName Class;
    std::u16string Caption;
    std::optional<DialogFont> Font; // where the style has DS_SETFONT
    std::vector<DialogItem> Items;
};

// Reads a resource of type Dialog, in the extended or the older form. Gives nothing where the bytes end too
// early, claim to be of another version or name a standard class that doesn't exist. Throws std::bad_alloc.
std::optional<DialogTemplate> ReadDialogTemplate(std::span<const std::byte> bytes);
