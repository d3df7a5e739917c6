// The readers of compiled resources: bytes after a resource are neither read nor part of its texts.
#include "Fuzz.h"

#include <ResourceText.h>
#include <dialogs/resource.h>
#include <platform/user/DialogInit.h>
#include <platform/user/ResourceFile.h>
#include <vector>

using fuzz::Require;
using Bytes = std::span<const std::byte>;

namespace
{

std::string InitText(Bytes bytes)
{
    std::string text;
    for (const DialogInitEntry& entry : ReadDialogInit(bytes).value_or(std::vector<DialogInitEntry>()))
        text += std::to_string(entry.ControlId) + std::string(entry.Text.begin(), entry.Text.end()) + '\n';
    return text;
}

void TryResource(Bytes bytes)
{
    constexpr std::size_t maxPerByte = 32; // characters that one byte can expand to
    std::vector<std::byte> longer(bytes.begin(), bytes.end());
    longer.insert(longer.end(), 64, std::byte{'A'});
    for (const auto read : {test::MenuText, test::DialogText, InitText}) {
        const std::string text = read(bytes);
        Require(text.size() <= maxPerByte * bytes.size(), "a resource is larger than its bytes");
        Require(text.find('\0') == std::string::npos, "a text goes on behind its end");
        Require(text.empty() || text == read(longer), "bytes behind a resource change it");
    }
}

} // namespace

void fuzz::Try(std::string_view text)
{
    const Bytes file = std::as_bytes(std::span(text));
    for (const auto type : {ResourceType::Menu, ResourceType::Dialog, ResourceType::DialogInit}) {
        for (const std::uint16_t id : {IDD_STYLE_ATLAS, IDD_CURVE_LAYOUT, IDR_STYLE_ATLAS_MENU}) {
            const Bytes found = FindResource(file, type, id);
            Require(found.empty() || (&found.front() >= &file.front() && &found.back() <= &file.back()),
                    "a resource lies outside its file");
            TryResource(found);
        }
    }
}
