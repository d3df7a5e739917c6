// A name as the registry stores it and searches for it.
#pragma once

#include "Ascii.h"
#include "CaseFolding.h"

#include <algorithm>
#include <string>
#include <utility>

// Keys and values are stored with their spelling and their folded name. Older versions folded A to Z alone;
// their entries are found by that form, or by folding the spelling that they stored.
struct RegistryName {
    explicit RegistryName(std::string utf8)
        : Spelling(std::move(utf8)), Folded(FoldCase(Spelling)), FoldedByOlder(Spelling)
    {
        std::ranges::transform(FoldedByOlder, FoldedByOlder.begin(), FoldAscii<char>);
    }

    const std::string Spelling;
    const std::string Folded;
    std::string FoldedByOlder;
};
