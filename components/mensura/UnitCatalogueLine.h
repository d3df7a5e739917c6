// One line of the catalogue:
//
//   device ; quantity ; sub-quantity ; index ; flags ; symbol ; name
//
// Numbers are decimal or, with 0x, hexadecimal; blanks around a field are ignored. The sub-quantity "*" names
// the quantity as a whole, of one device or, with the device "*", of all; its index and flags are "*" or 0.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace mensura
{

constexpr std::uint16_t maxSubQuantity = 255;
constexpr std::uint16_t maxIndex = 255;
constexpr std::uint16_t noDevice = 65535; // also written -1

struct UnitCatalogueLine {
    std::optional<std::uint16_t> Device; // empty: a quantity as a whole, of all devices
    std::uint16_t Quantity = 0;
    std::optional<std::uint16_t> SubQuantity; // empty: the quantity as a whole
    std::uint16_t Index = 0;
    std::uint32_t Flags = 0;
    std::u16string Symbol;
    std::u16string Name; // may be empty
};

// True for a line without content: blanks alone, or a comment.
bool IsBlankOrComment(std::string_view text);

// Parses a line, passed without its line end. Empty on a syntax error, which reason then describes.
std::optional<UnitCatalogueLine> ParseLine(std::string_view text, std::string& reason);

} // namespace mensura
