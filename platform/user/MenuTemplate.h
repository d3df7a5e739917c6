// A menu template: items and nested popups.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

enum class MenuItemKind { Command, Popup, Separator };

struct MenuTemplateItem {
    MenuItemKind Kind;
    std::uint16_t Id; // of a command; 0 for a popup or a separator
    std::u16string Text;
    std::vector<MenuTemplateItem> Items; // of a popup, which has at least one
};

// Reads a resource of type Menu and gives the items of its bar in order. Gives nothing if the bytes end too
// early, are of another version or nest popups more than 16 levels deep. Throws std::bad_alloc.
std::optional<std::vector<MenuTemplateItem>> ReadMenuTemplate(std::span<const std::byte> bytes);
