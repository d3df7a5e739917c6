#include "MessageCatalogueFile.h"

#include <ModuleFolder.h>
#include <StandardError.h>
#include <WholeFile.h>

#include <cerrno>
#include <cstdlib>

namespace glossa
{

namespace
{

constexpr const char* folderVariable = "GLOSSA_LOCALEDIR";
constexpr const char* fileBelowLanguage = "/LC_MESSAGES/glossa.mo";
constexpr std::size_t largestFile = 1 << 20; // bytes; the texts of a program take a hundredth of it

std::string LocaleFolder()
{
    const char* const named = secure_getenv(folderVariable);
    return named != nullptr && *named != 0 ? named
                                           : std::string(ModuleFolder()) + "/" STYLEATLAS_LIB_TO_LOCALE;
}

} // namespace

MessageCatalogueFile ReadMessageCatalogueFile(const std::string& language)
{
    MessageCatalogueFile file{LocaleFolder() + "/" + language + fileBelowLanguage, {}};
    errno = 0;
    const char* hindrance = ReadWholeFile(file.Path, largestFile, file.Bytes);
    const bool isMissing = errno == ENOENT || errno == ENOTDIR;
    if (hindrance == nullptr && file.Bytes.empty())
        hindrance = "empty";
    if (hindrance != nullptr) {
        file.Bytes.clear();
        if (!isMissing)
            TellUnusable(file.Path, hindrance);
    }
    return file;
}

void TellUnusable(const std::string& path, const char* reason)
{
    WriteToStandardError("glossa: " + path + " is left out: " + reason + '\n');
}

} // namespace glossa
