// The resources of a module, as the resource compiler writes them: one file of entries, each with a type, a
// name and bytes. It stands in the module itself.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

// The types that the layer reads. The bytes of each have a reader of their own: MenuTemplate.h,
// DialogTemplate.h, DialogInit.h.
enum class ResourceType : std::uint16_t { Menu = 4, Dialog = 5, DialogInit = 240 };

// Gives the bytes of the first resource of this type and number in a compiled resource file, in whatever
// language it is; empty where there is none. Entries behind damaged ones are not found. They stay the file's.
std::span<const std::byte> FindResource(std::span<const std::byte> file, ResourceType type, std::uint16_t id);

// The same in the file that this module carries. The bytes stay as long as the module. A module that carries
// none has no resources.
std::span<const std::byte> FindResource(ResourceType type, std::uint16_t id);

// The file that a module carries: an object that the module defines, made by the build from its script.
struct EmbeddedResources {
    const unsigned char* Bytes;
    std::size_t Size;
};
[[gnu::weak]] extern const EmbeddedResources ModuleResources;
