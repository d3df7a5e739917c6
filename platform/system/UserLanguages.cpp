#include "UserLanguages.h"

#include <Ascii.h>

#include <algorithm>
#include <cstdlib>

namespace
{

// In order of precedence.
constexpr const char* localeVariables[] = {"LC_ALL", "LC_MESSAGES", "LANG"};
constexpr const char* listVariable = "LANGUAGE";

// Bounds on an untrusted environment.
constexpr std::size_t maxLanguages = 8;
constexpr std::size_t maxNameLength = 32; // bytes

constexpr std::string_view marksInNames = "_.@-";

// language[_territory][.codeset][@modifier]; the parts include their leading character.
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

// The locale or list that counts; empty for texts as they are. A locale of "C" overrides the list.
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

// Rejects names that could lead out of the catalogue folder.
bool IsLocaleName(std::string_view name)
{
    const auto isAllowed = [](char c) {
        return IsLetterOrDigit(c) || marksInNames.find(c) != std::string_view::npos;
    };
    return !name.empty() && name.size() <= maxNameLength && IsLetterOrDigit(name.front()) &&
           std::ranges::all_of(name, isAllowed);
}

// Removes the end of the name, from the given character on, and returns it.
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
    for (std::size_t i = 0; i < maxLanguages && !rest.empty(); ++i) {
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
