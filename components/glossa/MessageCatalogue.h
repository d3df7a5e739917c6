// The translations for the user: those of the user's languages, then the English ones.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <utility>

namespace glossa
{

struct Translation {
    std::u16string Text;     // as in the catalogue
    std::u16string Stripped; // without access key marks and outer blanks
};

enum class Language {
    User,   // the user's languages, then English
    English // English alone
};

class MessageCatalogue
{
public:
    // Reads the catalogue files that the environment selects. Missing and damaged ones are left out. Throws
    // std::bad_alloc.
    MessageCatalogue();

    // Null if there is no translation. The translation belongs to the catalogue and never moves.
    const Translation* Find(std::u16string_view section, std::u16string_view text,
                            Language language) const noexcept;

private:
    using Key = std::pair<std::u16string, std::u16string>; // section and text
    using KeyView = std::pair<std::u16string_view, std::u16string_view>;

    // Compares keys with views of keys, so that a lookup allocates nothing.
    struct ByKey {
        using is_transparent = void;
        bool operator()(const KeyView& first, const KeyView& second) const noexcept { return first < second; }
    };

    // Filled from the files alone: looking up ever new texts doesn't make it grow.
    using Translations = std::map<Key, Translation, ByKey>;

    static void AddFile(Translations& translations, const std::string& language);
    static const Translation* FindIn(const Translations& translations, const KeyView& key) noexcept;

    Translations m_user;
    Translations m_english;
};

} // namespace glossa
