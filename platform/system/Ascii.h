// The letters A to Z, whatever the locale.
#pragma once

// The small letter of a capital; any other character unchanged.
template <class Character> constexpr Character FoldAscii(Character c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<Character>(c + ('a' - 'A')) : c;
}

template <class Character> constexpr bool IsAsciiLetter(Character c)
{
    return FoldAscii(c) >= 'a' && FoldAscii(c) <= 'z';
}
