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
constexpr std::size_t maxFileSize = 1 << 20; // bytes, a hundred times what the texts take

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
    const char* error = ReadWholeFile(file.Path, maxFileSize, file.Bytes);
    const bool isMissing = errno == ENOENT || errno == ENOTDIR;
    if (error == nullptr && file.Bytes.empty())
        error = "empty";
    if (error != nullptr) {
        file.Bytes.clear();
        if (!isMissing)
            ReportUnusable(file.Path, error);
    }
    return file;
}

void ReportUnusable(const std::string& path, const char* reason)
{
    WriteToStandardError("glossa: " + path + " is left out: " + reason + '\n');
}

} // namespace glossa
