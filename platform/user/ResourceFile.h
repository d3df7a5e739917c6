// The resources of a module, in the format of the resource compiler: a file of entries, each with a type, a
// name and bytes, that is embedded in the module.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

// The types that the layer reads: see MenuTemplate.h, DialogTemplate.h, DialogInit.h.
enum class ResourceType : std::uint16_t { Menu = 4, Dialog = 5, DialogInit = 240 };

// The bytes of the first resource of this type and number, in any language; empty if there is none. Entries
// after a damaged one aren't found. The bytes belong to the file.
std::span<const std::byte> FindResource(std::span<const std::byte> file, ResourceType type, std::uint16_t id);

// The same in the file that is embedded in this module; empty if there is none.
std::span<const std::byte> FindResource(ResourceType type, std::uint16_t id);

// The embedded file, an object that the build generates from the resource script.
struct EmbeddedResources {
    const unsigned char* Bytes;
    std::size_t Size;
};
[[gnu::weak]] extern const EmbeddedResources ModuleResources;
