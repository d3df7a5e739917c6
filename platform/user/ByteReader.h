// Reads compiled resources from unchecked bytes: little-endian numbers and 16-bit texts at any address.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

// A name in a resource: a number or a text. Number 0 with an empty text stands for no name.
struct ResourceName {
    std::uint16_t Number = 0; // 0 if the name is a text
    std::u16string Text;

    bool operator==(const ResourceName&) const = default;
};

// After a read past the end, Good is false, and this and all later reads give zeros and empty texts. The
// bytes have to outlive the reader.
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

    // Up to the terminating zero, which is skipped.
    std::u16string Text();

    // 0xFFFF and a number, or a text.
    ResourceName Name();

    // The next bytes, unchanged.
    std::span<const std::byte> Bytes(std::size_t count);

    // Skips to a multiple of 4 bytes from the start, or to the end.
    void Align();

private:
    std::uint32_t Number(std::size_t size);

    std::span<const std::byte> m_bytes;
    std::size_t m_position = 0;
    bool m_good = true;
};
