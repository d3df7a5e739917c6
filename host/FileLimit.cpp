#include "FileLimit.h"

#include "Texts.h"

#include <styleatlas.hpp>

namespace atlashost
{

bool HasStyles(std::size_t file)
{
    return file < styleatlas::FileColumns;
}

std::string FileLimitRemark(std::size_t files)
{
    if (files == 0 || HasStyles(files - 1))
        return {};
    return Text("There are styles for %1 files only: the curves of file %2 and those after it are plain "
                "black lines.",
                {std::to_string(styleatlas::FileColumns), std::to_string(styleatlas::FileColumns + 1)});
}

} // namespace atlashost
