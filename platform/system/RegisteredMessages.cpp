#include <afx.h>

#include <algorithm>
#include <new>
#include <string>
#include <vector>

namespace
{

constexpr UINT firstNumber = 0xC000;
constexpr UINT lastNumber = 0xFFFF;

// Constructed on first use, as names are registered by static constructors.
std::vector<std::u16string>& Names()
{
    static std::vector<std::u16string> names;
    return names;
}

} // namespace

UINT RegisterWindowMessageW(LPCWSTR name)
{
    std::vector<std::u16string>& names = Names();
    const auto isSame = [name](const std::u16string& known) { return _wcsicmp(known.c_str(), name) == 0; };
    const auto found = std::ranges::find_if(names, isSame);
    const UINT number = firstNumber + static_cast<UINT>(found - names.begin());
    if (found != names.end())
        return number;
    if (number > lastNumber)
        return 0;
    try {
        names.emplace_back(name);
    } catch (const std::bad_alloc&) {
        return 0;
    }
    return number;
}
