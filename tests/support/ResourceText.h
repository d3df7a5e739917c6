// Dialogs and menus as text. Damaged ones give an empty text.
#pragma once

#include <platform/system/Unicode.h>
#include <platform/user/DialogTemplate.h>
#include <platform/user/MenuTemplate.h>

#include <sstream>

namespace test
{

// Lines for the window, its font and each control: id, class, style in hexadecimal, title, rectangle.
inline std::string DialogText(std::span<const std::byte> bytes)
{
    const auto dialog = ReadDialogTemplate(bytes);
    if (!dialog)
        return {};
    std::ostringstream out;
    const auto write = [&out](DWORD style, const std::u16string& title, const DialogRect& r) {
        out << std::hex << style << std::dec << " '" << ToUtf8(title) << "' " << r.X << ',' << r.Y << ','
            << r.Width << ',' << r.Height << '\n';
    };
    write(dialog->Style, dialog->Caption, dialog->Rect);
    if (dialog->PointSize)
        out << "font " << *dialog->PointSize << '\n';
    for (const DialogItem& item : dialog->Items) {
        out << item.Id << ' ' << ToUtf8(item.Class) << ' ';
        write(item.Style, item.Title, item.Rect);
    }
    return out.str();
}

// A line for each item, indented by its level: command (c), popup (p) or separator (s) with its id and text.
inline std::string TextOf(const std::vector<MenuTemplateItem>& items, const std::string& indent = "")
{
    std::string text;
    for (const MenuTemplateItem& item : items)
        text += indent + "cps"[static_cast<std::size_t>(item.Kind)] + std::to_string(item.Id) + ' ' +
                ToUtf8(item.Text) + '\n' + TextOf(item.Items, indent + ' ');
    return text;
}

inline std::string MenuText(std::span<const std::byte> bytes)
{
    return TextOf(ReadMenuTemplate(bytes).value_or(std::vector<MenuTemplateItem>()));
}

} // namespace test
