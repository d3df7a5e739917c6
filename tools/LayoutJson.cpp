// The commands export and import.
#include "Commands.h"
#include "LayoutDocument.h"
#include "LayoutReader.h"
#include "LayoutWriter.h"
#include "Texts.h"

#include <bindings/terminal/Text.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string_view>

#include <unistd.h>

namespace atlaslayout
{
namespace
{

LayoutContents ReadDocumentAt(const char* path)
{
    const bool isInput = std::string_view{path} == "-";
    const std::string shownPath = styleatlas::terminal::Printable(path, styleatlas::terminal::NoLimit);
    std::ifstream file;
    if (!isInput) {
        std::error_code ignored;
        file.open(path, std::ios::binary);
        const int error = file ? EISDIR : errno;
        if (!file || std::filesystem::is_directory(path, ignored))
            throw std::runtime_error{shownPath + ": " + std::strerror(error)};
    }
    try {
        return ReadDocument(isInput ? std::cin : file);
    } catch (const std::runtime_error& error) {
        throw std::runtime_error{shownPath + ": " + error.what()};
    }
}

} // namespace

int ExportLayout(Words paths, const Options& /*options*/)
{
    WriteDocument(std::cout, ReadLayout(paths[0]));
    return Succeeded;
}

int ImportLayout(Words paths, const Options& /*options*/)
{
    const LayoutContents contents = ReadDocumentAt(paths[0]);
    if (paths.size() > 1)
        SaveLayout(paths[1], contents);
    else if (isatty(STDOUT_FILENO) != 0)
        throw std::runtime_error{Text("a layout file is not for a terminal; name a file for it")};
    else
        PrintLayout(contents);
    return Succeeded;
}

} // namespace atlaslayout
