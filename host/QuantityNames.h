// The quantities of the unit library by their names.
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

// A copy of the unit library's list at the time of construction.
class QuantityNames
{
public:
    QuantityNames();

    std::span<const MeasuredQuantity> All() const { return m_quantities; }

    // The quantity of a column heading: by symbol, else by symbol in any case, else by the first word of the
    // name in any case. The first of the list if several fit equally well, null if none fits.
    const MeasuredQuantity* Find(std::string_view header) const;

private:
    using Positions = std::unordered_map<std::string, std::size_t>;

    std::vector<MeasuredQuantity> m_quantities;
    Positions m_bySymbol;
    Positions m_byFoldedSymbol;
    Positions m_byFirstWord;
};

} // namespace atlashost
