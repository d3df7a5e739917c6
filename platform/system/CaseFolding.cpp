#include "CaseFolding.h"

#include "Unicode.h"

#include <algorithm>
#include <iterator>

namespace
{

// A run of capitals, each Distance below its small letter. With a Step of 2, capitals and small letters
// alternate.
struct Capitals {
    char16_t First;
    char16_t Last;
    unsigned short Distance;
    unsigned short Step;
};
constexpr Capitals capitals[] = {
    {0x0041, 0x005A, 32, 1}, {0x00C0, 0x00D6, 32, 1}, {0x00D8, 0x00DE, 32, 1}, {0x0100, 0x012E, 1, 2},
    {0x0132, 0x0136, 1, 2},  {0x0139, 0x0147, 1, 2},  {0x014A, 0x0176, 1, 2},  {0x0179, 0x017D, 1, 2},
    {0x01CD, 0x01DB, 1, 2},  {0x01DE, 0x01EE, 1, 2},  {0x01F8, 0x021E, 1, 2},  {0x0222, 0x0232, 1, 2},
    {0x0386, 0x0386, 38, 1}, {0x0388, 0x038A, 37, 1}, {0x038C, 0x038C, 64, 1}, {0x038E, 0x038F, 63, 1},
    {0x0391, 0x03A1, 32, 1}, {0x03A3, 0x03AB, 32, 1}, {0x03C2, 0x03C2, 1, 1}, // the final sigma
    {0x03D8, 0x03EE, 1, 2},  {0x0400, 0x040F, 80, 1}, {0x0410, 0x042F, 32, 1}, {0x0460, 0x0480, 1, 2},
    {0x048A, 0x04BE, 1, 2},  {0x04C0, 0x04C0, 15, 1}, {0x04C1, 0x04CD, 1, 2},  {0x04D0, 0x052E, 1, 2},
    {0x0531, 0x0556, 48, 1}, {0x1E00, 0x1E94, 1, 2},  {0x1EA0, 0x1EFE, 1, 2},
};
constexpr char16_t capitalYDiaeresis = 0x0178; // the only one above its small letter
constexpr char16_t smallYDiaeresis = 0x00FF;

} // namespace

char16_t FoldCharacter(char16_t c) noexcept
{
    if (c == capitalYDiaeresis)
        return smallYDiaeresis;
    const auto* const run = std::ranges::lower_bound(capitals, c, {}, &Capitals::Last);
    const bool isCapital = run != std::end(capitals) && c >= run->First && (c - run->First) % run->Step == 0;
    return isCapital ? static_cast<char16_t>(c + run->Distance) : c;
}

std::string FoldCase(std::string_view utf8)
{
    std::u16string text = ToUtf16(utf8);
    std::ranges::transform(text, text.begin(), FoldCharacter);
    return ToUtf8(text);
}
