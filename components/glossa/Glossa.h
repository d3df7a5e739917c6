// The language library: turns the English texts of a program into the user's language.
//
// Texts are looked up in compiled gettext catalogues of the domain "glossa", with the section as the message
// context. The environment selects the languages: LC_ALL, LC_MESSAGES or LANG, and unless that is "C",
// LANGUAGE before it. Neither setlocale nor an installed locale is needed. English is the last resort; its
// catalogue holds the texts for which a program has only a key. The catalogues are read at the first lookup,
// from the folder in GLOSSA_LOCALEDIR, else from the one installed with the library. Unusable catalogues are
// reported on standard error and left out.
#pragma once

#include <memory>

#include <afx.h>

#define GLOSSA_API __attribute__((visibility("default")))

namespace glossa
{
class MessageCatalogue;
}

// A text without a translation is returned unchanged, and so is any text if memory runs out. The pointer
// forms then return pszText itself, null included; other pointers belong to the object and are valid as long
// as it. Calls on one object must not overlap. Only the string form throws: the class framework's memory
// exception.
class GLOSSA_API k_GlossaW
{
public:
    k_GlossaW();
    k_GlossaW(const k_GlossaW&) = delete;
    k_GlossaW& operator=(const k_GlossaW&) = delete;
    virtual ~k_GlossaW();

    // The translation without access key marks ("&" is removed, "&&" becomes "&") and without outer blanks.
    // With bUseUserLanguage false, the English one.
    const TCHAR* GetStrippedText(const TCHAR* pszText, CString strSection, bool bUseUserLanguage);

    // The translation as in the catalogue. With bUseUserLanguage false, the English one.
    const TCHAR* GetUnStrippedText(const TCHAR* pszText, CString strSection, bool bUseUserLanguage);
    CString GetUnStrippedText(CString strText, CString strSection, bool bUseUserLanguage);

private:
    const glossa::MessageCatalogue* Loaded() noexcept;

    std::unique_ptr<const glossa::MessageCatalogue> m_pCatalogue;
};

// To be called once, when a module of the class framework is attached. Determines the folder of the library,
// so that one loaded by a relative path finds its catalogues after a change of the current folder.
GLOSSA_API void InitMFCGlossaExtDLL();
