#include "ResourceText.h"

#include <platform/system/Unicode.h>
#include <platform/user/DialogTemplate.h>
#include <platform/user/MenuTemplate.h>

#include <sstream>
#include <string_view>

namespace
{

constexpr std::string_view kinds = "cps"; // of MenuItemKind

std::string Of(const std::u16string& text)
{
    return '\'' + ToUtf8(text) + '\'';
}

std::ostream& operator<<(std::ostream& out, const DialogRect& r)
{
    return out << r.X << ',' << r.Y << ',' << r.Width << ',' << r.Height;
}

// One line for each item, indented by its level.
void Write(std::ostream& out, const std::vector<MenuTemplateItem>& items, const std::string& indent = "")
{
    for (const MenuTemplateItem& item : items) {
        out << indent << kinds[static_cast<std::size_t>(item.Kind)] << item.Id << ' ' << ToUtf8(item.Text)
            << '\n';
        Write(out, item.Items, indent + ' ');
    }
}

} // namespace

namespace test
{

std::string DialogText(std::span<const std::byte> bytes)
{
    const auto dialog = ReadDialogTemplate(bytes);
    if (!dialog)
        return {};
    std::ostringstream out;
    out << std::hex << dialog->Style << std::dec << ' ' << Of(dialog->Caption) << ' ' << dialog->Rect << '\n';
    if (dialog->PointSize)
        out << "font " << *dialog->PointSize << '\n';
    for (const DialogItem& item : dialog->Items)
        out << item.Id << ' ' << ToUtf8(item.Class) << ' ' << std::hex << item.Style << std::dec << ' '
            << Of(item.Title) << ' ' << item.Rect << '\n';
    return out.str();
}

std::string MenuText(std::span<const std::byte> bytes)
{
    std::ostringstream out;
    if (const auto items = ReadMenuTemplate(bytes))
        Write(out, *items);
    return out.str();
}

} // namespace test
