#include "FailedLooks.h"

#include "CaseFolding.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace
{

constexpr std::size_t mostKeys = 16; // a host has one or two

struct FailedLook {
    std::uint64_t Key = 0;
    LONG Result = ERROR_SUCCESS; // of the last look; ERROR_SUCCESS in a place that is free
    LONG Opening = ERROR_SUCCESS;
    std::uint64_t Refused = 0; // the mark of the value; 0 for none
};

constinit std::array<FailedLook, mostKeys> looks;
constinit std::size_t oldest = 0;

FailedLook* Find(std::uint64_t key)
{
    auto* const found = std::ranges::find_if(
        looks, [key](const FailedLook& look) { return look.Key == key && look.Result != ERROR_SUCCESS; });
    return found != looks.end() ? found : nullptr;
}

class Hash
{
public:
    void Add(unsigned unit) { m_value = (m_value ^ unit) * prime; }
    std::uint64_t Value() const { return m_value | 1; } // never 0

private:
    static constexpr std::uint64_t prime = 0x100000001B3; // of the FNV-1a hash, like the start
    std::uint64_t m_value = 0xCBF29CE484222325;
};

} // namespace

bool IsAnswer(LONG result)
{
    return result == ERROR_SUCCESS || result == ERROR_FILE_NOT_FOUND || result == ERROR_MORE_DATA ||
           result == ERROR_NOT_REGISTRY_FILE;
}

std::uint64_t KeyMark(std::u16string_view subKey)
{
    Hash hash;
    char16_t before = u'\\';
    for (const char16_t c : subKey) {
        if (before == u'\\' && c != u'\\')
            hash.Add(u'\\');
        if (c != u'\\')
            hash.Add(FoldCharacter(c));
        before = c;
    }
    return hash.Value();
}

std::uint64_t ValueMark(std::u16string_view name, DWORD type, std::string_view bytes)
{
    Hash hash;
    for (const char16_t c : name)
        hash.Add(FoldCharacter(c));
    hash.Add(type);
    for (const char byte : bytes)
        hash.Add(static_cast<unsigned char>(byte));
    return hash.Value();
}

void FailedLooks::Keep(std::uint64_t key, LONG result)
{
    FailedLook* look = Find(key);
    if (IsAnswer(result)) {
        if (look != nullptr)
            *look = {};
        return;
    }
    if (look == nullptr) {
        look = &looks[oldest];
        oldest = (oldest + 1) % mostKeys;
        *look = {.Key = key};
    }
    look->Result = look->Opening = result;
}

void FailedLooks::Opened(std::uint64_t key)
{
    if (FailedLook* const look = Find(key))
        look->Opening = ERROR_SUCCESS;
}

LONG FailedLooks::OpeningOf(std::uint64_t key)
{
    const FailedLook* const look = Find(key);
    return look != nullptr ? look->Opening : ERROR_SUCCESS;
}

void FailedLooks::Refuse(std::uint64_t key, std::uint64_t value)
{
    if (FailedLook* const look = Find(key))
        look->Refused = value;
}

LONG FailedLooks::RefusalOf(std::uint64_t value)
{
    const auto* const look = std::ranges::find(looks, value, &FailedLook::Refused);
    return look != looks.end() ? look->Result : ERROR_SUCCESS;
}
