// The readers of compiled resources, on a whole file and on each resource in it: what they read is no larger
// than its bytes, its texts end where they end, and bytes behind a resource change nothing.
#include "Fuzz.h"
#include "FuzzResources.h"

#include <ResourceText.h>
#include <platform/user/DialogInit.h>

namespace
{

std::string InitText(fuzz::Bytes bytes)
{
    std::string text;
    for (const DialogInitEntry& entry : ReadDialogInit(bytes).value_or(std::vector<DialogInitEntry>()))
        text += std::to_string(entry.ControlId) + std::string(entry.Text.begin(), entry.Text.end()) + '\n';
    return text;
}

void TryOne(fuzz::Bytes bytes)
{
    constexpr std::size_t mostOfOne = 32; // characters that a byte can become
    std::vector<std::byte> longer(bytes.begin(), bytes.end());
    longer.insert(longer.end(), 64, std::byte{'A'});
    for (const auto read : {test::MenuText, test::DialogText, InitText}) {
        const std::string text = read(bytes);
        fuzz::Require(text.size() <= mostOfOne * bytes.size(), "a resource is larger than its bytes");
        fuzz::Require(text.find('\0') == std::string::npos, "a text goes on behind its end");
        fuzz::Require(text.empty() || text == read(longer), "bytes behind a resource change it");
    }
}

} // namespace

void fuzz::Try(std::string_view text)
{
    const Bytes file = std::as_bytes(std::span(text));
    TryOne(file);
    ForEachResource(file, [&](ResourceType, int, Bytes found) {
        Require(found.data() >= file.data() && found.data() + found.size() <= file.data() + file.size(),
                "a resource lies outside its file");
        TryOne(found);
    });
}
