#include "DialogTemplate.h"

#include <iterator>
#include <string_view>
#include <utility>

namespace
{

constexpr std::uint32_t extendedSignature = 0xFFFF0001; // version 1, then the mark that no style has
constexpr std::uint32_t extendedMark = 0xFFFF0000;
constexpr std::uint32_t setFont = 0x40; // DS_SETFONT

// The standard classes, which a template may name by number.
constexpr std::uint16_t firstClass = 0x80;
constexpr std::u16string_view classNames[] = {u"Button",  u"Edit",      u"Static",
                                              u"ListBox", u"ScrollBar", u"ComboBox"};

enum class Form { Older, Extended };

DialogRect ReadRect(ByteReader& in)
{
    DialogRect rect{};
    rect.X = in.Short();
    rect.Y = in.Short();
    rect.Width = in.Short();
    rect.Height = in.Short();
    return rect;
}

DialogFont ReadFont(ByteReader& in, Form form)
{
    DialogFont font{};
    font.PointSize = in.Word();
    if (form == Form::Extended) {
        font.Weight = in.Word();
        font.Italic = in.Byte() != 0;
        font.CharSet = in.Byte();
    }
    font.Face = in.Text();
    return font;
}

// Empty for a number that no class has.
std::u16string ReadClass(ByteReader& in)
{
    ResourceName name = in.Name();
    const std::size_t index = static_cast<std::size_t>(name.Number) - firstClass;
    return index < std::size(classNames) ? std::u16string(classNames[index]) : std::move(name.Text);
}

// The older form counts the size in itself.
std::span<const std::byte> ReadCreation(ByteReader& in, Form form)
{
    const std::size_t size = in.Word();
    if (form == Form::Extended || size == 0)
        return in.Bytes(size);
    return in.Bytes(size - sizeof(std::uint16_t));
}

DialogItem ReadItem(ByteReader& in, Form form)
{
    DialogItem item{};
    in.Align();
    if (form == Form::Extended) {
        item.HelpId = in.DWord();
        item.ExStyle = in.DWord();
        item.Style = in.DWord();
    } else {
        item.Style = in.DWord();
        item.ExStyle = in.DWord();
    }
    item.Rect = ReadRect(in);
    item.Id = form == Form::Extended ? static_cast<std::int32_t>(in.DWord()) : in.Short();
    item.Class = ReadClass(in);
    item.Title = in.Name();
    const std::span<const std::byte> creation = ReadCreation(in, form);
    item.Creation.assign(creation.begin(), creation.end());
    return item;
}

} // namespace

std::optional<DialogTemplate> ReadDialogTemplate(std::span<const std::byte> bytes)
{
    ByteReader in(bytes);
    DialogTemplate dialog{};
    const std::uint32_t first = in.DWord();
    const Form form = first == extendedSignature ? Form::Extended : Form::Older;
    if (form == Form::Extended) {
        dialog.HelpId = in.DWord();
        dialog.ExStyle = in.DWord();
        dialog.Style = in.DWord();
    } else if ((first & extendedMark) == extendedMark) {
        return std::nullopt;
    } else {
        dialog.Style = first;
        dialog.ExStyle = in.DWord();
    }
    const std::uint16_t itemCount = in.Word();
    dialog.Rect = ReadRect(in);
    dialog.Menu = in.Name();
    dialog.Class = in.Name();
    dialog.Caption = in.Text();
    if (dialog.Style & setFont)
        dialog.Font = ReadFont(in, form);
    for (std::uint16_t i = 0; i < itemCount && in.Good(); ++i) {
        dialog.Items.push_back(ReadItem(in, form));
        if (dialog.Items.back().Class.empty())
            return std::nullopt;
    }
    return in.Good() ? std::optional(std::move(dialog)) : std::nullopt;
}
