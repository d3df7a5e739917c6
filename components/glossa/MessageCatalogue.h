// The translations that one user gets: those of the user's languages, and the English names behind them.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <utility>

namespace glossa
{

struct Translation {
    std::u16string Text;     // as the catalogue has it
    std::u16string Stripped; // without access key marks and without blanks at both ends
};

enum class Language {
    User,   // the user's languages, then English
    English // English alone
};

class MessageCatalogue
{
public:
    // Reads the catalogue files that the environment chooses. What is missing or damaged is left out; throws
    // std::exception where there is no memory.
    MessageCatalogue();

    // Null where there is no translation. The translation stays the catalogue's and never moves.
    const Translation* Find(std::u16string_view section, std::u16string_view text,
                            Language language) const noexcept;

private:
    using Key = std::pair<std::u16string, std::u16string>; // section and text
    using KeyView = std::pair<std::u16string_view, std::u16string_view>;

    // Orders keys and views of keys alike, so that a lookup allocates nothing.
    struct ByKey {
        using is_transparent = void;
        bool operator()(const KeyView& first, const KeyView& second) const noexcept { return first < second; }
    };

    // Filled from the files alone and never by a lookup, so endless distinct texts don't make it grow.
    using Translations = std::map<Key, Translation, ByKey>;

    static void AddFile(Translations& translations, const std::string& language);
    static const Translation* FindIn(const Translations& translations, const KeyView& key) noexcept;

    Translations m_user;
    Translations m_english;
};

} // namespace glossa
