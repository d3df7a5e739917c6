#include <afx.h>

#include <algorithm>
#include <new>
#include <vector>

namespace
{

constexpr UINT firstNumber = 0xC000;
constexpr UINT lastNumber = 0xFFFF;

// Constructed on first use, as names are registered by static constructors.
std::vector<CString>& Names()
{
    static std::vector<CString> names;
    return names;
}

} // namespace

UINT RegisterWindowMessageW(LPCWSTR name)
{
    std::vector<CString>& names = Names();
    const auto found = std::find_if(names.begin(), names.end(),
                                    [name](const CString& known) { return known.CompareNoCase(name) == 0; });
    const UINT number = firstNumber + static_cast<UINT>(found - names.begin());
    if (found != names.end())
        return number;
    if (number > lastNumber)
        return 0;
    try {
        names.emplace_back(name);
    } catch (const std::bad_alloc&) {
        return 0;
    } catch (CException* e) {
        e->Delete();
        return 0;
    }
    return number;
}
