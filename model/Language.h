// The module's language object, which translates every text that is shown.
#pragma once

#include <Glossa.h>

AFX_EXT_DATA extern k_GlossaW g_Language;

// The section of the module's texts.
inline constexpr const TCHAR* k_LanguageSection = _T("Styleatlas");
