#include "UnitCatalogueFile.h"

#include <ModuleFolder.h>
#include <StandardError.h>
#include <WholeFile.h>

#include <algorithm>
#include <cstdlib>
#include <string_view>
#include <sys/stat.h>
#include <utility>

namespace mensura
{

namespace
{

constexpr const char* pathVariable = "MENSURA_CATALOGUE";
constexpr const char* fileName = "/mensura.catalogue";
constexpr std::size_t maxFileSize = 16 << 20; // bytes
constexpr std::size_t maxLineLength = 4096;   // bytes
constexpr std::size_t maxDiagnostics = 20;
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

// The diagnostics of one file; past the maximum, line errors are only counted.
class Diagnostics
{
public:
    explicit Diagnostics(const std::string& path) : m_path(path) {}

    void ReportFile(const std::string& reason) const
    {
        WriteToStandardError("mensura: " + m_path + ": " + reason + '\n');
    }

    void ReportLine(std::size_t line, const std::string& reason)
    {
        if (++m_lineErrors <= maxDiagnostics)
            WriteToStandardError("mensura: " + m_path + ':' + std::to_string(line) + ": " + reason + '\n');
    }

    void ReportRest() const
    {
        if (m_lineErrors > maxDiagnostics)
            ReportFile("... and " + std::to_string(m_lineErrors - maxDiagnostics) + " more");
    }

private:
    const std::string& m_path;
    std::size_t m_lineErrors = 0;
};

// False when the catalogue is full.
bool AddLine(std::string_view text, std::size_t number, UnitCatalogue& catalogue, Diagnostics& diagnostics)
{
    if (text.size() > maxLineLength) {
        diagnostics.ReportLine(number, "the line is longer than " + std::to_string(maxLineLength) + " bytes");
        return true;
    }
    if (IsBlankOrComment(text))
        return true;
    std::string reason;
    std::optional<UnitCatalogueLine> line = ParseLine(text, reason);
    if (!line) {
        diagnostics.ReportLine(number, reason);
        return true;
    }
    if (catalogue.Add(std::move(*line)))
        return true;
    diagnostics.ReportLine(number, "more than " + std::to_string(UnitCatalogue::MaxLines) +
                                       " lines; this one and all after it are left out");
    return false;
}

} // namespace

std::string UnitCataloguePath()
{
    const char* const named = secure_getenv(pathVariable);
    return named != nullptr && *named != 0 ? named
                                           : std::string(ModuleFolder()) + "/" MENSURA_LIB_TO_DATA + fileName;
}

std::optional<FileStamp> StampOf(const std::string& path)
{
    struct stat status {
    };
    if (stat(path.c_str(), &status) != 0)
        return std::nullopt;
    return FileStamp{status.st_dev,         status.st_ino,          status.st_size,
                     status.st_mtim.tv_sec, status.st_mtim.tv_nsec, status.st_ctim.tv_sec,
                     status.st_ctim.tv_nsec};
}

UnitCatalogue ReadUnitCatalogue(const std::string& path)
{
    UnitCatalogue catalogue;
    Diagnostics diagnostics(path);
    std::string content;
    if (const char* const error = ReadWholeFile(path, maxFileSize, content)) {
        diagnostics.ReportFile(error);
        return catalogue;
    }
    std::string_view rest = content;
    if (rest.starts_with(byteOrderMark))
        rest.remove_prefix(byteOrderMark.size());
    bool hasRoom = true;
    for (std::size_t number = 1; hasRoom && !rest.empty(); ++number) {
        const std::size_t end = std::min(rest.find('\n'), rest.size());
        hasRoom = AddLine(rest.substr(0, end), number, catalogue, diagnostics);
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    diagnostics.ReportRest();
    return catalogue;
}

} // namespace mensura
