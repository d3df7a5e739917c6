#include "LikenessWords.h"

#include <cstdio>

namespace styleatlas::distinct
{
namespace
{

std::string WordsFor(Sight sight, terminal::Translator text)
{
    switch (sight) {
    case Sight::Normal:
        return text("normal sight", {});
    case Sight::Greyscale:
        return text("greyscale", {});
    case Sight::Protan:
        return text("protan (red-blind)", {});
    case Sight::Deutan:
        return text("deutan (green-blind)", {});
    default:
        return text("tritan (blue-blind)", {});
    }
}

} // namespace

std::string OneDecimal(double value)
{
    char text[32];
    std::snprintf(text, sizeof text, "%.1f", value);
    return text;
}

std::string InWords(const std::vector<Closeness>& close, terminal::Translator text)
{
    std::string words;
    for (const auto& [sight, difference] : close)
        words += (words.empty() ? "" : ", ") + WordsFor(sight, text) + " " + OneDecimal(difference);
    return words;
}

} // namespace styleatlas::distinct
