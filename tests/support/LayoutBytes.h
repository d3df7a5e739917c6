// Layout files as strings.
#pragma once

#include <model/StyleAtlas.h>

#include <string>
#include <string_view>

namespace test
{

// What the atlas writes.
std::string BytesOf(k_StyleAtlas& atlas);

// Lays a file of these bytes over the atlas; lets the reader's exceptions through.
void ReadInto(k_StyleAtlas& atlas, std::string_view bytes);

} // namespace test
