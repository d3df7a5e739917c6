// Integer arithmetic with the roundings of the rasteriser.
#pragma once

#include <cmath>
#include <cstdint>

namespace gdi
{

// Products of two coordinates' squares don't fit into 64 bits.
__extension__ using Wide = unsigned __int128;

constexpr std::int64_t FloorDiv(std::int64_t dividend, std::int64_t positiveDivisor)
{
    const std::int64_t quotient = dividend / positiveDivisor;
    return dividend % positiveDivisor < 0 ? quotient - 1 : quotient;
}

constexpr std::int64_t CeilDiv(std::int64_t dividend, std::int64_t positiveDivisor)
{
    return -FloorDiv(-dividend, positiveDivisor);
}

// The largest r with r * r * divisor <= dividend, both below 2^120 and the result below 2^62.
inline std::int64_t FloorSqrt(Wide dividend, Wide divisor = 1)
{
    // The estimate is off by floating-point rounding only.
    auto root = static_cast<Wide>(std::sqrt(static_cast<double>(dividend) / static_cast<double>(divisor)));
    while (root * root * divisor > dividend)
        --root;
    while ((root + 1) * (root + 1) * divisor <= dividend)
        ++root;
    return static_cast<std::int64_t>(root);
}

// The same for a quotient of numbers below 2^62 whose result is below 2^31.
inline std::int64_t FloorSqrt64(std::int64_t dividend, std::int64_t divisor = 1)
{
    auto root =
        static_cast<std::int64_t>(std::sqrt(static_cast<double>(dividend) / static_cast<double>(divisor)));
    while (root * root * divisor > dividend)
        --root;
    while ((root + 1) * (root + 1) * divisor <= dividend)
        ++root;
    return root;
}

} // namespace gdi
