// CatalogueLine.h: one line of the catalogue, and how it is written:
//
//   device ; quantity ; sub-quantity ; index ; flags ; symbol ; name
//
// Numbers are decimal or, with 0x, hexadecimal; blanks around a field do not count. A sub-quantity of "*"
// names the quantity as a whole, of one device or with the device "*" of all; its index and flags are "*" or
// 0.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace mensura
{

constexpr std::uint16_t MaxSubQuantity = 255;
constexpr std::uint16_t MaxIndex = 255;
constexpr std::uint16_t NoDevice = 65535; // also written -1

struct CatalogueLine {
    std::optional<std::uint16_t> device; // without one: of all devices, for a quantity as a whole
    std::uint16_t quantity = 0;
    std::optional<std::uint16_t> subQuantity; // without one: the quantity as a whole
    std::uint16_t index = 0;
    std::uint32_t flags = 0;
    std::u16string symbol;
    std::u16string name; // can be empty
};

// True for a line that says nothing: blanks alone, or a comment.
bool IsSilent(std::string_view text);

// Reads a line, given without its line end. Where it cannot be understood the result is empty and reason says
// why.
std::optional<CatalogueLine> ParseLine(std::string_view text, std::string& reason);

} // namespace mensura
