// The language library: turns the English texts of a program into the user's language.
//
// Texts are looked up by section and text in compiled gettext catalogues of the domain "glossa", the section
// being the message context. The user's environment names the languages (LC_ALL, LC_MESSAGES or LANG;
// with a locale other than "C", LANGUAGE goes before them), whether or not the program has called setlocale
// and whether or not such a locale is installed. English stands behind every other language; its catalogue
// names what a program has only a key for. The catalogues are read at the first lookup, from the folder in
// the environment variable GLOSSA_LOCALEDIR, else from the one that is installed with the library. A
// catalogue that cannot be used is told on standard error and left out.
#pragma once

#include <memory>

#include <afx.h>

#define GLOSSA_API __attribute__((visibility("default")))

namespace glossa
{
class MessageCatalogue;
}

// A text without a translation is given back unchanged, and so is every text where there is no memory. The
// pointer forms then give pszText itself, null included; any other pointer is the object's and good as long
// as the object. Calls on one object must not overlap. No exception leaves but the class framework's memory
// exception, and that from the string form alone.
class GLOSSA_API k_GlossaW
{
public:
    k_GlossaW();
    k_GlossaW(const k_GlossaW&) = delete;
    k_GlossaW& operator=(const k_GlossaW&) = delete;
    virtual ~k_GlossaW();

    // The translation for a place that shows no access keys: its "&" marks are taken out ("&&" becomes "&"),
    // and blanks at both ends are dropped. With bUseUserLanguage false, only English translates.
    const TCHAR* GetStrippedText(const TCHAR* pszText, CString strSection, bool bUseUserLanguage);

    // The translation as the catalogue has it. With bUseUserLanguage false, only English translates.
    const TCHAR* GetUnStrippedText(const TCHAR* pszText, CString strSection, bool bUseUserLanguage);
    CString GetUnStrippedText(CString strText, CString strSection, bool bUseUserLanguage);

private:
    const glossa::MessageCatalogue* Loaded() noexcept;

    std::unique_ptr<const glossa::MessageCatalogue> m_pCatalogue;
};

// Prepares the library for a module of the class framework; called once, when the module is attached: a
// library that was found by a relative path finds its catalogues later even if the program changes its
// current folder.
GLOSSA_API void InitMFCGlossaExtDLL();
