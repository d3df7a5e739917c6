#include "UserLanguages.h"

#include <Ascii.h>

#include <algorithm>
#include <cstdlib>

namespace glossa
{

namespace
{

// The first that is set and not empty is the user's locale.
constexpr const char* localeVariables[] = {"LC_ALL", "LC_MESSAGES", "LANG"};
constexpr const char* listVariable = "LANGUAGE";

// Bounds on what an environment can make the library try.
constexpr std::size_t mostLanguages = 8;
constexpr std::size_t longestName = 32; // bytes

constexpr std::string_view marksInNames = "_.@-";

// A locale's name: language[_territory][.codeset][@modifier]. The parts keep the character that leads them.
struct LocaleName {
    std::string Language;
    std::string Territory;
    std::string Modifier;
};

std::string_view Variable(const char* name)
{
    const char* const value = std::getenv(name);
    return value != nullptr ? value : "";
}

bool IsNoLanguage(std::string_view locale)
{
    return locale.empty() || locale == "C" || locale == "POSIX";
}

// A user without a language wants the texts as they are, whatever the list says.
std::string_view Wanted()
{
    std::string_view locale;
    for (const char* const name : localeVariables) {
        if (locale.empty())
            locale = Variable(name);
    }
    if (IsNoLanguage(locale))
        return {};
    const std::string_view list = Variable(listVariable);
    return list.empty() ? locale : list;
}

constexpr bool IsLetterOrDigit(char c)
{
    return IsAsciiLetter(c) || (c >= '0' && c <= '9');
}

// A name that could lead out of the folder of catalogues is none.
bool IsLocaleName(std::string_view name)
{
    const auto isAllowed = [](char c) {
        return IsLetterOrDigit(c) || marksInNames.find(c) != std::string_view::npos;
    };
    return !name.empty() && name.size() <= longestName && IsLetterOrDigit(name.front()) &&
           std::ranges::all_of(name, isAllowed);
}

// Cuts off and returns the end of the name from the given character on.
std::string CutFrom(std::string_view& name, char lead)
{
    const std::size_t at = std::min(name.find(lead), name.size());
    std::string end(name.substr(at));
    name = name.substr(0, at);
    return end;
}

LocaleName Split(std::string_view name)
{
    LocaleName parts;
    parts.Modifier = CutFrom(name, '@');
    CutFrom(name, '.');
    parts.Territory = CutFrom(name, '_');
    parts.Language = name;
    return parts;
}

void AddForms(std::vector<std::string>& names, const LocaleName& name)
{
    const bool hasTerritory = !name.Territory.empty();
    const bool hasModifier = !name.Modifier.empty();
    if (hasTerritory && hasModifier)
        names.push_back(name.Language + name.Territory + name.Modifier);
    if (hasModifier)
        names.push_back(name.Language + name.Modifier);
    if (hasTerritory)
        names.push_back(name.Language + name.Territory);
    if (name.Language != englishLanguage)
        names.push_back(name.Language);
}

} // namespace

std::vector<std::string> UserLanguages()
{
    std::vector<std::string> names;
    std::string_view rest = Wanted();
    for (std::size_t i = 0; i < mostLanguages && !rest.empty(); ++i) {
        const std::string_view wanted = rest.substr(0, rest.find(':'));
        rest.remove_prefix(std::min(rest.size(), wanted.size() + 1));
        if (!IsLocaleName(wanted))
            continue;
        const LocaleName name = Split(wanted);
        if (name.Language == "C" || name.Language == "POSIX")
            break;
        AddForms(names, name);
        if (name.Language == englishLanguage)
            break;
    }
    return names;
}

} // namespace glossa
