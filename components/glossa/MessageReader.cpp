#include "MessageReader.h"

#include <Ascii.h>

#include <algorithm>
#include <cstdint>

namespace glossa
{

namespace
{

// Byte offsets of the words in the file's head.
constexpr std::size_t revisionAt = 4;
constexpr std::size_t countAt = 8;
constexpr std::size_t idTableAt = 12;
constexpr std::size_t textTableAt = 16;
constexpr std::size_t headSize = 28;

constexpr std::size_t tableEntrySize = 8; // a length and a position
constexpr std::uint32_t magic = 0x950412DE;
constexpr std::uint32_t magicSwapped = 0xDE120495;
constexpr std::uint32_t maxMajorRevision = 1;
constexpr std::string_view charsetKey = "charset=";
constexpr std::string_view charsetWanted = "utf-8";

class MessageReader
{
public:
    explicit MessageReader(std::string_view bytes) : m_bytes(bytes) {}

    bool ReadHead()
    {
        if (m_bytes.size() < headSize)
            return false;
        m_isBigEndian = Word(0) == magicSwapped;
        if (Word(0) != magic || Word(revisionAt) >> 16 > maxMajorRevision)
            return false;
        return HasTable(Word(idTableAt)) && HasTable(Word(textTableAt));
    }

    std::uint32_t Count() const { return Word(countAt); }

    bool ReadMessage(std::uint32_t index, Message& message)
    {
        return ReadText(Word(idTableAt), index, message.Id) &&
               ReadText(Word(textTableAt), index, message.Text);
    }

private:
    std::uint32_t Word(std::size_t position) const
    {
        std::uint32_t word = 0;
        for (std::size_t i = 0; i < sizeof word; ++i) {
            const auto byte = static_cast<unsigned char>(m_bytes[position + i]);
            word |= std::uint32_t{byte} << 8 * (m_isBigEndian ? sizeof word - 1 - i : i);
        }
        return word;
    }

    bool HasTable(std::size_t position) const
    {
        return position <= m_bytes.size() && Count() <= (m_bytes.size() - position) / tableEntrySize;
    }

    bool ReadText(std::size_t table, std::size_t index, std::string_view& text)
    {
        const std::size_t length = Word(table + index * tableEntrySize);
        const std::size_t position = Word(table + index * tableEntrySize + sizeof(std::uint32_t));
        if (position >= m_bytes.size() || length >= m_bytes.size() - position ||
            m_bytes[position + length] != 0)
            return false;
        // Texts don't overlap in a valid file; many references to one long text would exhaust the memory.
        m_textsSize += length;
        if (m_textsSize > m_bytes.size())
            return false;
        text = m_bytes.substr(position, length);
        text = text.substr(0, text.find('\0')); // plural forms follow
        return true;
    }

    std::string_view m_bytes;
    bool m_isBigEndian = false;
    std::size_t m_textsSize = 0;
};

// Whether the message that describes the file names UTF-8, or no character set.
bool IsUtf8(std::string_view description)
{
    const std::size_t key = description.find(charsetKey);
    if (key == std::string_view::npos)
        return true;
    std::string_view charset = description.substr(key + charsetKey.size());
    charset = charset.substr(0, charset.find_first_of(" \t\n"));
    return std::ranges::equal(charset, charsetWanted, {}, FoldAscii<char>);
}

} // namespace

std::optional<std::vector<Message>> ReadMessages(std::string_view bytes)
{
    MessageReader reader(bytes);
    if (!reader.ReadHead())
        return std::nullopt;
    std::vector<Message> messages;
    for (std::uint32_t i = 0; i < reader.Count(); ++i) {
        Message message;
        if (!reader.ReadMessage(i, message))
            return std::nullopt;
        if (!message.Id.empty())
            messages.push_back(message);
        else if (!IsUtf8(message.Text))
            return std::nullopt;
    }
    return messages;
}

} // namespace glossa
