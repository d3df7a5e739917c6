// Texts in buffers of fixed size.
#include "Unicode.h"

#include <algorithm>
#include <windows.h>

namespace
{

constexpr bool IsInsideCharacter(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

} // namespace

LPWSTR lstrcpynW(LPWSTR target, LPCWSTR source, int maxLength)
{
    if (maxLength <= 0)
        return target;
    const std::u16string_view text(source);
    const std::size_t copied = std::min(text.size(), static_cast<std::size_t>(maxLength) - 1);
    text.copy(target, copied);
    target[copied] = 0;
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
    if (bytes.size() <= room) {
        bytes.copy(target, bytes.size());
        return static_cast<int>(bytes.size());
    }
    std::size_t fitting = room;
    while (fitting > 0 && IsInsideCharacter(bytes[fitting]))
        --fitting;
    bytes.copy(target, fitting);
    std::fill(target + fitting, target + room, 0);
    return 0;
}
