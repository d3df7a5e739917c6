// The reader of message catalogues: each text ends within the file, and lookups return exactly these texts.
#include "Fuzz.h"

#include <Glossa.h>
#include <MessageReader.h>
#include <TempPrefix.h>
#include <map>
#include <system/Unicode.h>

using fuzz::Require;

namespace
{

void RequireInside(std::string_view bytes, std::string_view text)
{
    Require(text.data() >= bytes.data() && text.data() + text.size() < bytes.data() + bytes.size() &&
                text.data()[text.size()] == '\0' && text.find('\0') == std::string_view::npos,
            "a text is not ended in the file");
}

} // namespace

void fuzz::Try(std::string_view bytes)
{
    static const test::TempPrefix prefix;
    static const std::string folder = prefix.MakeFolder("en/LC_MESSAGES");
    static const test::ScopedVariable variable("GLOSSA_LOCALEDIR", prefix.Native().c_str());
    test::WriteWhole(folder + "/glossa.mo", bytes);

    // Of messages with equal ids the first counts.
    std::map<std::pair<std::u16string, std::u16string>, std::u16string> wanted;
    const auto messages = glossa::ReadMessages(bytes);
    for (const glossa::Message& message : messages.value_or(std::vector<glossa::Message>())) {
        RequireInside(bytes, message.Id);
        RequireInside(bytes, message.Text);
        const std::size_t end = message.Id.find('\4');
        if (end != std::string_view::npos && !message.Text.empty())
            wanted.try_emplace({ToUtf16(message.Id.substr(0, end)), ToUtf16(message.Id.substr(end + 1))},
                               ToUtf16(message.Text));
    }
    k_GlossaW language;
    for (const auto& [key, text] : wanted) {
        const CString section(key.first.c_str());
        Require(language.GetUnStrippedText(key.second.c_str(), section, false) == text, "a text is lost");
        const std::u16string_view stripped = language.GetStrippedText(key.second.c_str(), section, false);
        Require(stripped.size() <= text.size(), "stripping adds to a text");
    }
    const TCHAR* const unknown = _T("no text of any file");
    Require(language.GetStrippedText(unknown, CString(), true) == unknown, "a text comes from nowhere");
}
