#include "MessageCatalogue.h"

#include <optional>

#include <Unicode.h>
#include <UserLanguages.h>

#include "MessageCatalogueFile.h"
#include "MessageReader.h"

namespace glossa
{

namespace
{

constexpr char contextEnd = '\4'; // between the context and the text of a message
constexpr std::u16string_view blanks = u" \t";
constexpr char16_t accessKeyMark = u'&';

std::u16string StripText(std::u16string_view text)
{
    std::u16string stripped;
    for (std::size_t i = 0; i < text.size(); ++i) {
        // "&&" stands for a single "&".
        if (text[i] == accessKeyMark && ++i == text.size())
            break;
        stripped.push_back(text[i]);
    }
    stripped.erase(stripped.find_last_not_of(blanks) + 1);
    stripped.erase(0, stripped.find_first_not_of(blanks));
    return stripped;
}

} // namespace

MessageCatalogue::MessageCatalogue()
{
    for (const std::string& language : UserLanguages())
        AddFile(m_user, language);
    AddFile(m_english, std::string(englishLanguage));
}

const Translation* MessageCatalogue::Find(std::u16string_view section, std::u16string_view text,
                                          Language language) const noexcept
{
    const KeyView key(section, text);
    const Translation* const found = language == Language::User ? FindIn(m_user, key) : nullptr;
    return found != nullptr ? found : FindIn(m_english, key);
}

// Earlier files take precedence: their languages are preferred.
void MessageCatalogue::AddFile(Translations& translations, const std::string& language)
{
    const MessageCatalogueFile file = ReadMessageCatalogueFile(language);
    if (file.Bytes.empty())
        return;
    const std::optional<std::vector<Message>> messages = ReadMessages(file.Bytes);
    if (!messages) {
        ReportUnusable(file.Path, "not a gettext catalogue in UTF-8, or damaged");
        return;
    }
    for (const Message& message : *messages) {
        const std::size_t end = message.Id.find(contextEnd);
        if (end == std::string_view::npos || message.Text.empty())
            continue; // without a section, or untranslated
        const auto [place, isNew] = translations.try_emplace(
            Key(ToUtf16(message.Id.substr(0, end)), ToUtf16(message.Id.substr(end + 1))));
        if (!isNew)
            continue;
        place->second.Text = ToUtf16(message.Text);
        place->second.Stripped = StripText(place->second.Text);
    }
}

const Translation* MessageCatalogue::FindIn(const Translations& translations, const KeyView& key) noexcept
{
    const auto place = translations.find(key);
    return place != translations.end() ? &place->second : nullptr;
}

} // namespace glossa
