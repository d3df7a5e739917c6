#include "ByteReader.h"

#include <algorithm>

namespace
{

constexpr std::uint16_t numberMark = 0xFFFF; // instead of the first character of a name
constexpr std::size_t alignment = 4;

} // namespace

std::uint8_t ByteReader::Byte()
{
    return static_cast<std::uint8_t>(Number(sizeof(std::uint8_t)));
}

std::uint16_t ByteReader::Word()
{
    return static_cast<std::uint16_t>(Number(sizeof(std::uint16_t)));
}

std::uint32_t ByteReader::DWord()
{
    return Number(sizeof(std::uint32_t));
}

std::u16string ByteReader::Text()
{
    std::u16string text;
    while (const std::uint16_t unit = Word())
        text.push_back(unit);
    return text;
}

ResourceName ByteReader::Name()
{
    ByteReader ahead = *this;
    if (ahead.Word() != numberMark)
        return {0, Text()};
    *this = ahead;
    return {Word(), {}};
}

std::span<const std::byte> ByteReader::Bytes(std::size_t count)
{
    if (count > Left()) {
        m_good = false;
        return {};
    }
    const std::span<const std::byte> bytes = m_bytes.subspan(m_position, count);
    m_position += count;
    return bytes;
}

void ByteReader::Align()
{
    const std::size_t past = m_position % alignment;
    if (past != 0)
        m_position += std::min(alignment - past, Left());
}

std::uint32_t ByteReader::Number(std::size_t size)
{
    std::uint32_t number = 0;
    unsigned shift = 0;
    for (const std::byte byte : Bytes(size)) {
        number |= std::to_integer<std::uint32_t>(byte) << shift;
        shift += 8;
    }
    return number;
}
