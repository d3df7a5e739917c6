// The reader of unit catalogues, through the unit library's functions: its values survive a round trip.
#include "Fuzz.h"

#include <TempPrefix.h>
#include <mensura.h>
#include <system/Unicode.h>

namespace
{

// The list as a catalogue, with numbers in their shortest form.
std::string ListOf(const std::string& path, std::string_view bytes)
{
    test::WriteWhole(path, bytes);
    MensuraChangeUserInfoW(nullptr, nullptr, 0);
    uint16_t *devices, *quantities, *indexes;
    int* subs;
    uint32_t* flags;
    int count;
    MensuraGetQuantitiesW(&devices, &quantities, &subs, &indexes, &flags, &count);
    std::string list;
    for (int i = 0; i < count; ++i) {
        const auto sub = static_cast<uint32_t>(subs[i]);
        const auto symbol = [&](int mode) -> std::u16string {
            return MensuraGetSymbolW(quantities[i], sub, flags[i], devices[i], indexes[i], mode);
        };
        const std::u16string name = MensuraGetNameW(quantities[i], sub, flags[i], devices[i], indexes[i]);
        const std::u16string both = symbol(0) + (name.empty() ? u"" : u" (" + name + u")");
        fuzz::Require(!symbol(0).empty() && symbol(1) == both, "the texts of a quantity disagree");
        list += devices[i] == 65535 ? "-1" : std::to_string(devices[i]);
        for (const uint32_t number : {uint32_t{quantities[i]}, sub, uint32_t{indexes[i]}, flags[i]})
            list += ';' + std::to_string(number);
        list += ';' + ToUtf8(symbol(0)) + ';' + ToUtf8(name) + '\n';
    }
    return list;
}

} // namespace

void fuzz::Try(std::string_view bytes)
{
    static const test::TempPrefix prefix;
    static const std::string path = prefix.Path() / "catalogue";
    static const test::ScopedVariable variable("MENSURA_CATALOGUE", path.c_str());
    const std::string list = ListOf(path, bytes);
    Require(ListOf(path, list) == list, "what was written reads as something else");
}
