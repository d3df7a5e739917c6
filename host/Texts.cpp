#include "Texts.h"

#include <Glossa.h>

#include <bindings/terminal/Text.h>

namespace atlashost
{
namespace
{

using styleatlas::terminal::ToUtf16;
using styleatlas::terminal::ToUtf8;
using styleatlas::terminal::WithArguments;

constexpr const TCHAR* Section = _T("Host");

} // namespace

std::string Text(const char* english, std::initializer_list<std::string> arguments)
{
    static k_GlossaW language;
    const std::u16string text = ToUtf16(english);
    return WithArguments(ToUtf8(language.GetUnStrippedText(text.c_str(), Section, true)), arguments);
}

} // namespace atlashost
