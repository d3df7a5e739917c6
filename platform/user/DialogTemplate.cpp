#include "DialogTemplate.h"

#include <iterator>
#include <string_view>
#include <utility>

namespace
{

constexpr std::uint32_t extendedSignature = 0xFFFF0001; // version 1, then the mark of the extended form
constexpr std::uint32_t setFont = 0x40;                 // DS_SETFONT
constexpr std::size_t dwordSize = sizeof(std::uint32_t);

// The standard classes, which a template may name by number.
constexpr std::uint16_t firstClass = 0x80;
constexpr std::u16string_view classNames[] = {u"Button",  u"Edit",      u"Static",
                                              u"ListBox", u"ScrollBar", u"ComboBox"};

DialogRect ReadRect(ByteReader& in)
{
    DialogRect rect{};
    rect.X = in.Short();
    rect.Y = in.Short();
    rect.Width = in.Short();
    rect.Height = in.Short();
    return rect;
}

std::uint16_t ReadPointSize(ByteReader& in)
{
    const std::uint16_t size = in.Word();
    in.DWord(); // weight, italic, character set
    in.Text();  // face
    return size;
}

// Empty for a number without a class.
std::u16string ReadClass(ByteReader& in)
{
    ResourceName name = in.Name();
    const std::size_t index = static_cast<std::size_t>(name.Number) - firstClass;
    return index < std::size(classNames) ? std::u16string(classNames[index]) : std::move(name.Text);
}

DialogItem ReadItem(ByteReader& in)
{
    DialogItem item{};
    in.Align();
    in.Bytes(2 * dwordSize); // help id, extended style
    item.Style = in.DWord();
    item.Rect = ReadRect(in);
    item.Id = static_cast<std::int32_t>(in.DWord());
    item.Class = ReadClass(in);
    item.Title = in.Name().Text;
    in.Bytes(in.Word()); // creation data
    return item;
}

} // namespace

std::optional<DialogTemplate> ReadDialogTemplate(std::span<const std::byte> bytes)
{
    ByteReader in(bytes);
    if (in.DWord() != extendedSignature)
        return std::nullopt;
    DialogTemplate dialog{};
    in.Bytes(2 * dwordSize); // help id, extended style
    dialog.Style = in.DWord();
    const std::uint16_t itemCount = in.Word();
    dialog.Rect = ReadRect(in);
    in.Name(); // menu
    in.Name(); // window class
    dialog.Caption = in.Text();
    if (dialog.Style & setFont)
        dialog.PointSize = ReadPointSize(in);
    for (std::uint16_t i = 0; i < itemCount && in.Good(); ++i) {
        dialog.Items.push_back(ReadItem(in));
        if (dialog.Items.back().Class.empty())
            return std::nullopt;
    }
    return in.Good() ? std::optional(std::move(dialog)) : std::nullopt;
}
