#include "MenuTemplate.h"

#include "ByteReader.h"

#include <utility>

namespace
{

constexpr int mostLevels = 16; // more than any user would open, and few enough for the stack

// What the flags of an item tell the reader rather than the menu.
constexpr std::uint16_t popupFlag = 0x10;      // MF_POPUP
constexpr std::uint16_t lastFlag = 0x80;       // MF_END
constexpr std::uint16_t separatorFlag = 0x800; // MF_SEPARATOR
constexpr std::uint16_t startFlags = 0xFFFF & ~(popupFlag | lastFlag | separatorFlag);

bool ReadItems(ByteReader& in, int levelsLeft, std::vector<MenuTemplateItem>& items)
{
    if (levelsLeft == 0)
        return false;
    for (bool last = false; !last;) {
        const std::uint16_t flags = in.Word();
        last = (flags & lastFlag) != 0;
        const bool popup = (flags & popupFlag) != 0;
        MenuTemplateItem item{MenuItemKind::Popup, static_cast<std::uint16_t>(flags & startFlags), 0, {}, {}};
        if (!popup)
            item.Id = in.Word();
        item.Text = in.Text();
        // An older compiler writes a separator as an item of nothing.
        if (!popup)
            item.Kind = (flags & separatorFlag) || (item.Id == 0 && item.Text.empty())
                            ? MenuItemKind::Separator
                            : MenuItemKind::Command;
        if (!in.Good() || (popup && !ReadItems(in, levelsLeft - 1, item.Items)))
            return false;
        items.push_back(std::move(item));
    }
    return true;
}

} // namespace

std::optional<std::vector<MenuTemplateItem>> ReadMenuTemplate(std::span<const std::byte> bytes)
{
    ByteReader in(bytes);
    const std::uint16_t version = in.Word();
    const std::uint16_t restOfHeader = in.Word();
    in.Bytes(restOfHeader);
    std::vector<MenuTemplateItem> items;
    if (version != 0 || !ReadItems(in, mostLevels, items))
        return std::nullopt;
    return items;
}
