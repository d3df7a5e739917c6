// Reads the layouts of compiled resources out of bytes that nobody has checked: little-endian numbers and
// 16-bit texts, at any address.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

// What resources name by either a number or a text. An empty text with number 0 is "none".
struct ResourceName {
    std::uint16_t Number = 0; // 0 where the text counts
    std::u16string Text;

    bool operator==(const ResourceName&) const = default;
};

// A read past the end spoils the reader: it and every later one give zeros and empty texts, and Good tells so
// once all is read. The bytes stay the caller's and must outlive the reader.
class ByteReader
{
public:
    explicit ByteReader(std::span<const std::byte> bytes) : m_bytes(bytes) {}

    bool Good() const { return m_good; }
    std::size_t Left() const { return m_good ? m_bytes.size() - m_position : 0; }

    std::uint8_t Byte();
    std::uint16_t Word();
    std::uint32_t DWord();

    // Two's complement, as coordinates are stored.
    std::int16_t Short() { return static_cast<std::int16_t>(Word()); }

    // Up to a terminating zero, which is passed over.
    std::u16string Text();

    // 0xFFFF and a number, or a text.
    ResourceName Name();

    // The next bytes as they stand.
    std::span<const std::byte> Bytes(std::size_t count);

    // Moves on to a multiple of 4 bytes from the start, or to the end if that comes first.
    void Align();

private:
    std::uint32_t Number(std::size_t size);

    std::span<const std::byte> m_bytes;
    std::size_t m_position = 0;
    bool m_good = true;
};
