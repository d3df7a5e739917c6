#include "Paths.h"

#include "Ascii.h"
#include "CaseFolding.h"
#include "Descriptors.h"
#include "TextCopy.h"
#include "Unicode.h"

#include <shlobj.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace
{

constexpr const char* prefixVariable = "STYLEATLAS_PREFIX";
constexpr const char* sharedName = "styleatlas";
constexpr const char* driveFolder = "/drive_"; // and the drive's letter
constexpr std::u16string_view commonDataFolder = u"C:\\ProgramData";
constexpr std::size_t userRecordSize = 16384; // bytes that getpwuid_r may need

constexpr bool IsSeparator(char16_t c)
{
    return c == u'\\' || c == u'/';
}

// Empty if the effective user isn't the real one, whose environment this is.
std::string Variable(const char* name)
{
    const char* const value = getuid() == geteuid() ? secure_getenv(name) : nullptr;
    return value ? value : "";
}

// Absolute, or empty.
std::string HomeFolder()
{
    std::string home = Variable("HOME");
    if (home.starts_with('/'))
        return home;
    std::array<char, userRecordSize> buffer;
    passwd record{};
    passwd* found = nullptr;
    const bool isKnown =
        getpwuid_r(geteuid(), &record, buffer.data(), buffer.size(), &found) == 0 && found && found->pw_dir;
    home = isKnown ? found->pw_dir : "";
    return home.starts_with('/') ? home : "";
}

std::string WithoutSlash(std::string path)
{
    while (path.size() > 1 && path.back() == '/')
        path.pop_back();
    return path;
}

// The names between the separators, with "." and ".." resolved; ".." at the root is ignored.
std::vector<std::u16string_view> PathNames(std::u16string_view path)
{
    std::vector<std::u16string_view> names;
    while (!path.empty()) {
        const auto end = std::find_if(path.begin(), path.end(), IsSeparator);
        const std::u16string_view name = path.substr(0, static_cast<std::size_t>(end - path.begin()));
        path.remove_prefix(std::min(name.size() + 1, path.size()));
        if (name == u"..") {
            if (!names.empty())
                names.pop_back();
        } else if (!name.empty() && name != u".") {
            names.push_back(name);
        }
    }
    return names;
}

bool Exists(const std::string& path)
{
    struct stat status {
    };
    return lstat(path.c_str(), &status) == 0;
}

// The folder's entry of this name without regard to case, the first in byte order if there are several; the
// name itself if there is none.
std::string NameInFolder(const std::string& folder, const std::string& name)
{
    if (Exists(folder + '/' + name))
        return name;
    const Folder entries = OpenFolder(folder);
    const std::string folded = FoldCase(name);
    std::string found;
    while (const dirent* const entry = entries ? readdir(entries.get()) : nullptr) {
        if ((found.empty() || entry->d_name < found) && FoldCase(entry->d_name) == folded)
            found = entry->d_name;
    }
    return found.empty() ? name : found;
}

std::string OnDrive(char16_t drive, std::u16string_view path)
{
    std::string native = PrefixFolder();
    if (native.empty())
        return native;
    native += driveFolder;
    native += static_cast<char>(FoldAscii(drive));
    std::string asWritten = native;
    const std::vector<std::u16string_view> names = PathNames(path);
    for (const std::u16string_view name : names)
        asWritten += '/' + ToUtf8(name);
    if (Exists(asWritten))
        return asWritten;
    for (const std::u16string_view name : names)
        native += '/' + NameInFolder(native, ToUtf8(name));
    return native;
}

} // namespace

std::string PrefixFolder()
{
    const std::string prefix = Variable(prefixVariable);
    if (!prefix.empty())
        return WithoutSlash(prefix);
    const std::string data = Variable("XDG_DATA_HOME");
    if (data.starts_with('/')) // a relative one is not valid
        return WithoutSlash(data) + '/' + sharedName;
    const std::string home = HomeFolder();
    return home.empty() ? home : WithoutSlash(home) + "/.local/share/" + sharedName;
}

std::string NativePath(std::u16string_view path)
{
    if (path.empty() || path[0] == u'/')
        return ToUtf8(path);
    if (path.size() >= 2 && IsAsciiLetter(path[0]) && path[1] == u':')
        return OnDrive(path[0], path.substr(2));
    if (path[0] == u'\\')
        return OnDrive(u'c', path);
    std::string native = ToUtf8(path);
    std::replace(native.begin(), native.end(), '\\', '/');
    return native;
}

// Checked by the way back: native names with a backslash, and parts such as "..", have no drive path.
std::u16string DrivePath(const std::string& nativePath)
{
    std::u16string native = ToUtf16(nativePath);
    const std::string drives = PrefixFolder() + driveFolder;
    if (!nativePath.starts_with(drives) || nativePath.size() == drives.size())
        return native;
    std::u16string path = ToUtf16(std::string_view(nativePath).substr(drives.size()));
    path[0] = static_cast<char16_t>(path[0] & ~0x20U); // in capitals
    path.insert(1, path.size() == 1 ? u":\\" : u":");
    std::ranges::replace(path, u'/', u'\\');
    return NativePath(path) == nativePath ? path : native;
}

bool MakeFolder(const std::string& nativePath)
{
    for (std::size_t end = 0; end != std::string::npos;) {
        end = nativePath.find('/', end + 1);
        mkdir(nativePath.substr(0, end).c_str(), S_IRWXU);
    }
    struct stat status {
    };
    return stat(nativePath.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

HRESULT SHGetFolderPathW(HWND /*owner*/, int folder, HANDLE /*token*/, DWORD /*flags*/, LPWSTR path)
{
    if (folder != CSIDL_COMMON_APPDATA)
        return E_INVALIDARG;
    static_assert(commonDataFolder.size() < MAX_PATH);
    CopyText(commonDataFolder, path, MAX_PATH);
    return S_OK;
}
