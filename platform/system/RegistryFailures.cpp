#include "RegistryFailures.h"

#include "CaseFolding.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace
{

constexpr std::size_t maxKeys = 16; // a host has one or two

struct Failure {
    std::uint64_t Key = 0;
    LONG Result = ERROR_SUCCESS;    // of the last attempt; ERROR_SUCCESS in a free slot
    std::uint64_t RefusedValue = 0; // 0 for none
};

constinit std::array<Failure, maxKeys> failures;
constinit std::size_t oldest = 0;

Failure* Find(std::uint64_t key)
{
    auto* const found = std::ranges::find_if(failures, [key](const Failure& failure) {
        return failure.Key == key && failure.Result != ERROR_SUCCESS;
    });
    return found != failures.end() ? found : nullptr;
}

class Hash
{
public:
    void Add(unsigned unit) { m_value = (m_value ^ unit) * prime; }
    std::uint64_t Value() const { return m_value | 1; } // never 0

private:
    static constexpr std::uint64_t prime = 0x100000001B3; // FNV-1a, like the initial value
    std::uint64_t m_value = 0xCBF29CE484222325;
};

} // namespace

bool IsAnswer(LONG result)
{
    return result == ERROR_SUCCESS || result == ERROR_FILE_NOT_FOUND || result == ERROR_MORE_DATA ||
           result == ERROR_NOT_REGISTRY_FILE;
}

std::uint64_t KeyHash(std::u16string_view subKey)
{
    Hash hash;
    char16_t before = u'\\';
    for (const char16_t c : subKey.substr(0, subKey.find_last_not_of(u'\\') + 1)) {
        if (c != u'\\' || before != u'\\')
            hash.Add(FoldCharacter(c));
        before = c;
    }
    return hash.Value();
}

std::uint64_t ValueHash(std::string_view bytes)
{
    Hash hash;
    for (const char byte : bytes)
        hash.Add(static_cast<unsigned char>(byte));
    return hash.Value();
}

void RegistryFailures::Record(std::uint64_t key, LONG result)
{
    Failure* failure = Find(key);
    if (IsAnswer(result)) {
        if (failure != nullptr)
            *failure = {};
        return;
    }
    if (failure == nullptr) {
        failure = &failures[oldest];
        oldest = (oldest + 1) % maxKeys;
        *failure = {.Key = key};
    }
    failure->Result = result;
}

LONG RegistryFailures::ErrorOf(std::uint64_t key)
{
    const Failure* const failure = Find(key);
    return failure != nullptr ? failure->Result : ERROR_SUCCESS;
}

void RegistryFailures::RefuseValue(std::uint64_t key, std::uint64_t value)
{
    if (Failure* const failure = Find(key))
        failure->RefusedValue = value;
}

LONG RegistryFailures::RefusalOf(std::uint64_t value)
{
    const auto* const failure = std::ranges::find(failures, value, &Failure::RefusedValue);
    return failure != failures.end() ? failure->Result : ERROR_SUCCESS;
}
