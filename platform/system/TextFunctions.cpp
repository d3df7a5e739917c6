// Functions that fill text buffers of fixed size.
#include "TextCopy.h"
#include "Unicode.h"

#include <algorithm>
#include <iterator>
#include <windows.h>

namespace
{

constexpr int invalidArgument = 22; // EINVAL
constexpr int resultTooLong = 34;   // ERANGE

// The buffer for a part of a path: absent, or with room for at least a terminator.
struct PartBuffer {
    LPWSTR Text;
    std::size_t Size;

    bool IsValid() const { return (Text == nullptr) == (Size == 0); }
    bool Takes(std::u16string_view part) const { return Text == nullptr || part.size() < Size; }
    void Set(std::u16string_view part) const
    {
        if (Text != nullptr)
            CopyText(part, Text, Size);
    }
};

constexpr bool IsInsideCharacter(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

} // namespace

LPWSTR lstrcpynW(LPWSTR target, LPCWSTR source, int maxLength)
{
    if (maxLength > 0)
        CopyText(source, target, static_cast<std::size_t>(maxLength));
    return target;
}

int WideCharToMultiByte(UINT /*codePage*/, DWORD /*flags*/, LPCWSTR text, int length, char* target, int size,
                        const char* /*defaultChar*/, BOOL* /*usedDefaultChar*/)
{
    constexpr int upToTerminator = -1;
    std::string bytes =
        ToUtf8(length == upToTerminator ? std::u16string_view(text)
                                        : std::u16string_view(text, static_cast<std::size_t>(length)));
    if (length == upToTerminator)
        bytes.push_back(0);
    const auto room = static_cast<std::size_t>(std::max(size, 0));
    const bool fits = bytes.size() <= room;
    std::size_t count = fits ? bytes.size() : room;
    while (!fits && count > 0 && IsInsideCharacter(bytes[count]))
        --count;
    std::fill(std::copy_n(bytes.data(), count, target), target + room, 0);
    return fits ? static_cast<int>(bytes.size()) : 0;
}

int _wsplitpath_s(LPCWSTR path, LPWSTR drive, std::size_t driveSize, LPWSTR folder, std::size_t folderSize,
                  LPWSTR name, std::size_t nameSize, LPWSTR extension, std::size_t extensionSize)
{
    const PartBuffer buffers[] = {
        {drive, driveSize}, {folder, folderSize}, {name, nameSize}, {extension, extensionSize}};
    const auto empty = [&buffers](int failure) {
        for (const PartBuffer& buffer : buffers) {
            if (buffer.Size > 0)
                buffer.Set({});
        }
        return failure;
    };
    if (path == nullptr || !std::ranges::all_of(buffers, &PartBuffer::IsValid))
        return empty(invalidArgument);
    std::u16string_view rest(path);
    const auto take = [&rest](std::size_t length) {
        const std::u16string_view part = rest.substr(0, length);
        rest.remove_prefix(part.size());
        return part;
    };
    const std::u16string_view parts[] = {
        take(rest.size() > 1 && rest[1] == u':' ? 2 : 0),
        take(rest.find_last_of(u"\\/") + 1), // npos + 1 is 0
        take(rest.rfind(u'.')),
        rest,
    };
    for (std::size_t i = 0; i < std::size(parts); ++i) {
        if (!buffers[i].Takes(parts[i]))
            return empty(resultTooLong);
    }
    for (std::size_t i = 0; i < std::size(parts); ++i)
        buffers[i].Set(parts[i]);
    return 0;
}
