#include "DialogInit.h"

#include "ByteReader.h"
#include "Unicode.h"

#include <string_view>
#include <utility>

std::optional<std::vector<DialogInitEntry>> ReadDialogInit(std::span<const std::byte> bytes)
{
    ByteReader in(bytes);
    std::vector<DialogInitEntry> entries;
    while (const std::uint16_t control = in.Word()) {
        const std::uint16_t message = in.Word();
        const std::span<const std::byte> stored = in.Bytes(in.DWord());
        const std::string_view text(reinterpret_cast<const char*>(stored.data()), stored.size()); // NOLINT
        const std::size_t length = text.find('\0');
        if (length == std::string_view::npos)
            return std::nullopt;
        entries.push_back({control, message, ToUtf16(text.substr(0, length))});
    }
    return in.Good() ? std::optional(std::move(entries)) : std::nullopt;
}
