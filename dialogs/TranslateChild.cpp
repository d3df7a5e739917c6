#include "TranslateChild.h"

#include <iterator>
#include <model/Language.h>

BOOL CALLBACK TranslateChildProc(HWND child, LPARAM /*argument*/)
{
    constexpr int maxTextLength = 255;
    TCHAR text[maxTextLength + 1];
    if (::GetWindowTextW(child, text, static_cast<int>(std::size(text))) > 0)
        ::SetWindowTextW(child, g_Language.GetStrippedText(text, k_LanguageSection, true));
    return TRUE;
}
