// What the fuzzer of resources and its seeds have in common: the resources that they look for.
#pragma once

#include <dialogs/resource.h>
#include <platform/user/ResourceFile.h>

namespace fuzz
{

using Bytes = std::span<const std::byte>;

// Calls use(type, number, bytes) for each that is there: the module's own, and 7, which is another script's.
template <class Use> void ForEachResource(Bytes file, Use use)
{
    for (const auto type : {ResourceType::Menu, ResourceType::Dialog, ResourceType::DialogInit}) {
        for (const int id : {7, IDD_STYLE_ATLAS, IDD_CURVE_LAYOUT, IDR_STYLE_ATLAS_MENU}) {
            if (const Bytes found = FindResource(file, type, static_cast<std::uint16_t>(id)); !found.empty())
                use(type, id, found);
        }
    }
}

} // namespace fuzz
