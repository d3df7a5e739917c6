// The copy of a text into a buffer of a caller's.
#pragma once

#include <string_view>
#include <windef.h>

// Copies what fits into a buffer of size characters, at least one, and terminates it. Gives the length there.
inline std::size_t CopyText(std::u16string_view text, LPWSTR target, std::size_t size)
{
    const std::size_t length = text.copy(target, size - 1);
    target[length] = 0;
    return length;
}
