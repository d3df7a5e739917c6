// QuantityNames.h: the quantities of the unit library, and which of them the head of a column means.
#pragma once

#include <styleatlas.hpp>

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace atlashost
{

struct MeasuredQuantity {
    styleatlas::Key key;
    std::string symbol; // both in UTF-8
    std::string name;
};

// A copy of the unit library's list, taken when it is made.
class QuantityNames
{
public:
    QuantityNames();

    std::span<const MeasuredQuantity> All() const { return m_quantities; }

    // The quantity that a column is headed with: by its symbol, else by its symbol in any case, else by the
    // first word of its name in any case. Of several that fit in one way, the first of the list. Null where
    // none fits.
    const MeasuredQuantity* Find(std::string_view header) const;

private:
    using Positions = std::unordered_map<std::string, std::size_t>;

    std::vector<MeasuredQuantity> m_quantities;
    Positions m_bySymbol;
    Positions m_byFoldedSymbol;
    Positions m_byFirstWord;
};

} // namespace atlashost
