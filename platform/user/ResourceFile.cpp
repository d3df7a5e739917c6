#include "ResourceFile.h"

#include "ByteReader.h"

namespace
{

constexpr std::uint32_t sizesLength = 8; // of the two sizes at the start of an entry, part of the second one

} // namespace

std::span<const std::byte> FindResource(std::span<const std::byte> file, ResourceType type, std::uint16_t id)
{
    const ResourceName wantedType{static_cast<std::uint16_t>(type), {}};
    const ResourceName wantedName{id, {}};
    ByteReader entries(file);
    while (entries.Left() > 0) {
        const std::uint32_t dataSize = entries.DWord();
        const std::uint32_t headerSize = entries.DWord();
        if (headerSize < sizesLength)
            return {};
        ByteReader header(entries.Bytes(headerSize - sizesLength));
        const std::span<const std::byte> data = entries.Bytes(dataSize);
        entries.Align();
        if (header.Name() == wantedType && header.Name() == wantedName && header.Good())
            return data;
    }
    return {};
}

std::span<const std::byte> FindResource(ResourceType type, std::uint16_t id)
{
    if (&ModuleResources == nullptr)
        return {};
    return FindResource(std::as_bytes(std::span(ModuleResources.Bytes, ModuleResources.Size)), type, id);
}
