// Prints what the module's objects do between load and unload, in the order of the real source.
#include "ModuleObjects.h"

UINT RegisterWindowMessageW(LPCWSTR name)
{
    const std::u16string_view text(name);
    std::printf("%s\n", std::string(text.begin(), text.end()).c_str());
    return 0xC000;
}

int main()
{
    std::puts("loaded");
}
