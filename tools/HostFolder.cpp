#include "HostFolder.h"

#include <bindings/terminal/Text.h>
#include <model/HostSettings.h>
#include <platform/system/Paths.h>

#include <algorithm>
#include <filesystem>
#include <stdexcept>

namespace atlaslayout
{

using styleatlas::terminal::Printable;
using styleatlas::terminal::ToUtf16;

bool IsHostName(std::string_view name)
{
    constexpr std::size_t maxLength = 255; // bytes
    static constexpr std::string_view reserved = "<>:\"/\\|?*";
    const auto isUnfit = [](char c) {
        return (c >= '\0' && c < ' ') || c == '\x7f' || reserved.find(c) != std::string_view::npos;
    };
    return name.size() <= maxLength && !name.ends_with('.') && !name.ends_with(' ') &&
           std::ranges::none_of(name, isUnfit);
}

std::string MakeHostFolder(std::string_view hostName)
{
    const std::string prefix = PrefixFolder();
    if (prefix.empty())
        throw std::runtime_error{"the user has no home folder"};
    const CString layout = k_HostSettings::DefaultPathOf(ToUtf16(hostName).c_str());
    const std::filesystem::path folder =
        std::filesystem::absolute(NativePath(layout.GetString())).parent_path();
    MakeFolder(prefix); // a failure shows below
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (error)
        throw std::runtime_error{"the folder for the layout cannot be made: " +
                                 Printable(folder.native(), styleatlas::terminal::NoLimit) + ": " +
                                 error.message()};
    return folder.native();
}

} // namespace atlaslayout
