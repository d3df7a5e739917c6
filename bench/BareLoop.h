// The lookup's peer: the same staged search, as a bare loop over an array of pointers to rows.
#pragma once

#include "PlainTable.h"

namespace bench
{

// The table that BareLookup searches from now on; it stays the caller's and must not change while it is in
// use.
void SetBareTable(const PlainTable& table);

// GetStyleAtlas without a library around it: same arguments, same answer.
int BareLookup(std::int16_t fileColumn, std::uint16_t quantity, std::uint8_t subQuantity, std::uint8_t index,
               std::uint16_t device, std::uint32_t flags, std::uint32_t* symbolColor,
               std::int16_t* symbolShape, std::int16_t* symbolSize, std::int16_t* symbolFill,
               std::uint32_t* lineColor, std::int16_t* lineStyle, std::int16_t* lineWidth,
               std::uint8_t* useSymbolColor);

} // namespace bench
