#include "Glossa.h"

#include <exception>
#include <string_view>

#include <ModuleFolder.h>

#include "MessageCatalogue.h"
#include "MessageCatalogueFile.h"

namespace
{

std::u16string_view ViewOf(const CString& text)
{
    return {text.GetString(), static_cast<std::size_t>(text.GetLength())};
}

const glossa::Translation* FindText(const glossa::MessageCatalogue* catalogue, std::u16string_view text,
                                    const CString& section, bool useUserLanguage)
{
    if (catalogue == nullptr)
        return nullptr;
    return catalogue->Find(ViewOf(section), text,
                           useUserLanguage ? glossa::Language::User : glossa::Language::English);
}

} // namespace

k_GlossaW::k_GlossaW() = default;

k_GlossaW::~k_GlossaW() = default;

const TCHAR* k_GlossaW::GetStrippedText(const TCHAR* pszText, CString strSection, bool bUseUserLanguage)
{
    if (pszText == nullptr)
        return nullptr;
    const glossa::Translation* const found = FindText(Loaded(), pszText, strSection, bUseUserLanguage);
    return found != nullptr ? found->Stripped.c_str() : pszText;
}

const TCHAR* k_GlossaW::GetUnStrippedText(const TCHAR* pszText, CString strSection, bool bUseUserLanguage)
{
    if (pszText == nullptr)
        return nullptr;
    const glossa::Translation* const found = FindText(Loaded(), pszText, strSection, bUseUserLanguage);
    return found != nullptr ? found->Text.c_str() : pszText;
}

CString k_GlossaW::GetUnStrippedText(CString strText, CString strSection, bool bUseUserLanguage)
{
    const glossa::Translation* const found =
        FindText(Loaded(), ViewOf(strText), strSection, bUseUserLanguage);
    return found != nullptr ? CString(found->Text.c_str()) : strText;
}

// The catalogues are read at the first lookup, so that a program without windows never touches the disk.
const glossa::MessageCatalogue* k_GlossaW::Loaded() noexcept
{
    try {
        if (!m_pCatalogue)
            m_pCatalogue = std::make_unique<const glossa::MessageCatalogue>();
    } catch (const std::exception&) {
        return nullptr; // no memory: this text stays untranslated, the next lookup tries again
    }
    return m_pCatalogue.get();
}

void InitMFCGlossaExtDLL()
{
    try {
        ModuleFolder();
    } catch (const std::exception&) {
        return; // no memory: the first lookup tries again
    }
}
