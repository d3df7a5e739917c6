// The unit library, for the model of this program.
#pragma once

#include <model/UnitCalls.h>

namespace atlaslayout
{

k_UnitQuantities ListUnits();

// Lets the model build its catalogue from the unit library.
void BindUnits();

} // namespace atlaslayout
