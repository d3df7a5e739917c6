#include "MenuTemplate.h"

#include "ByteReader.h"

#include <utility>

namespace
{

constexpr int maxLevels = 16; // limits the recursion

// Flags of an item. Those of its initial state are ignored: all items start enabled and unchecked.
constexpr std::uint16_t popupFlag = 0x10;      // MF_POPUP
constexpr std::uint16_t lastFlag = 0x80;       // MF_END
constexpr std::uint16_t separatorFlag = 0x800; // MF_SEPARATOR

bool ReadItems(ByteReader& in, int levelsLeft, std::vector<MenuTemplateItem>& items)
{
    if (levelsLeft == 0)
        return false;
    for (bool last = false; !last;) {
        const std::uint16_t flags = in.Word();
        last = (flags & lastFlag) != 0;
        const bool popup = (flags & popupFlag) != 0;
        MenuTemplateItem item{MenuItemKind::Popup, 0, {}, {}};
        if (!popup)
            item.Id = in.Word();
        item.Text = in.Text();
        // Some compilers write a separator as an item without id and text.
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
    const std::uint32_t versionAndRestOfHeader = in.DWord(); // 0 and without any in this format
    std::vector<MenuTemplateItem> items;
    if (versionAndRestOfHeader != 0 || !ReadItems(in, maxLevels, items))
        return std::nullopt;
    return items;
}
