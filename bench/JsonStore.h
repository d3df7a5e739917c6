// The storage's other peer: the same table as JSON, one object a row with its key and an array of record
// objects.
#pragma once

#include "PlainTable.h"

#include <filesystem>

namespace bench
{

void JsonSave(const std::filesystem::path& path, const PlainTable& table);
PlainTable JsonLoad(const std::filesystem::path& path);

} // namespace bench
