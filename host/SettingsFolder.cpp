#include "SettingsFolder.h"

#include <algorithm>
#include <cstdlib>

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

namespace atlashost
{
namespace
{

constexpr const char* CommonData = "drive_c/ProgramData/Halvorn";
constexpr const char* PrefixName = "styleatlas";
constexpr std::string_view NotInNames = "<>:\"/\\|?*";

std::filesystem::path FromEnvironment(const char* name)
{
    const char* const value = std::getenv(name);
    return value == nullptr ? "" : value;
}

std::filesystem::path Home()
{
    if (std::filesystem::path home = FromEnvironment("HOME"); home.is_absolute())
        return home;
    const passwd* const user = getpwuid(getuid());
    return user == nullptr ? "/" : user->pw_dir;
}

std::filesystem::path Prefix()
{
    if (std::filesystem::path prefix = FromEnvironment("STYLEATLAS_PREFIX"); !prefix.empty())
        return prefix;
    if (const std::filesystem::path data = FromEnvironment("XDG_DATA_HOME"); data.is_absolute())
        return data / PrefixName;
    return Home() / ".local/share" / PrefixName;
}

} // namespace

bool IsHostName(std::string_view name)
{
    constexpr std::size_t LongestName = 255; // bytes
    const auto isUnfit = [](char c) {
        return (c >= '\0' && c < ' ') || c == '\x7f' || NotInNames.find(c) != std::string_view::npos;
    };
    return name.size() <= LongestName && !name.ends_with('.') && !name.ends_with(' ') &&
           std::ranges::none_of(name, isUnfit);
}

std::filesystem::path SettingsFolder(std::string_view hostName)
{
    return Prefix() / CommonData / hostName;
}

void CreateSettingsFolder(std::string_view hostName)
{
    std::filesystem::path prefix = Prefix();
    if (!prefix.has_filename())
        prefix = prefix.parent_path(); // without the slash at its end
    if (prefix.has_parent_path())
        std::filesystem::create_directories(prefix.parent_path());
    mkdir(prefix.c_str(), S_IRWXU); // what is wrong comes out below
    std::filesystem::create_directories(SettingsFolder(hostName));
}

} // namespace atlashost
