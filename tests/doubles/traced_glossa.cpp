// A language library that tells on standard error what happens to it.
#include <Glossa.h>

#include <cstdio>

class glossa::MessageCatalogue
{
};

k_GlossaW::k_GlossaW()
{
    std::fputs("glossa constructed\n", stderr);
}

k_GlossaW::~k_GlossaW()
{
    std::fputs("glossa destroyed\n", stderr);
}

const TCHAR* k_GlossaW::GetStrippedText(const TCHAR* pszText, CString /*strSection*/,
                                        bool /*bUseUserLanguage*/)
{
    return pszText;
}

const TCHAR* k_GlossaW::GetUnStrippedText(const TCHAR* pszText, CString /*strSection*/,
                                          bool /*bUseUserLanguage*/)
{
    return pszText;
}

CString k_GlossaW::GetUnStrippedText(CString strText, CString /*strSection*/, bool /*bUseUserLanguage*/)
{
    return strText;
}

void InitMFCGlossaExtDLL()
{
    std::fputs("glossa attached\n", stderr);
}
