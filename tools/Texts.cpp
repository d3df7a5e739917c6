#include "Texts.h"

#include <Glossa.h>

#include <bindings/terminal/Text.h>

namespace atlaslayout
{
namespace
{

std::string Translate(const char* english, const TCHAR* section, std::initializer_list<std::string> arguments)
{
    using namespace styleatlas::terminal;
    static k_GlossaW language;
    const std::u16string text = ToUtf16(english);
    return WithArguments(ToUtf8(language.GetUnStrippedText(text.c_str(), section, true)), arguments);
}

} // namespace

std::string Text(const char* english, std::initializer_list<std::string> arguments)
{
    return Translate(english, _T("Tool"), arguments);
}

std::string StyleText(const char* english, std::initializer_list<std::string> arguments)
{
    return Translate(english, _T("Host"), arguments);
}

} // namespace atlaslayout
