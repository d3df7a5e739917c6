// Keys and values of the registry that could not be read, so that nothing is overwritten because of it: an
// unreadable value isn't a missing one. Nothing here allocates, as the read may have failed for lack of
// memory. Calls must not overlap.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string_view>

// True for results of opening a key or reading a value that say what is stored, "not found" included.
bool IsAnswer(LONG result);

// Hashes: of a key without regard to case and empty path parts, of a value with all its bytes; never 0.
std::uint64_t KeyHash(std::u16string_view subKey);
std::uint64_t ValueHash(std::string_view bytes);

namespace RegistryFailures
{

// Records the result of opening or reading a key; an answer clears the key's record.
void Record(std::uint64_t key, LONG result);

// The error of the last attempt to open or read the key, or ERROR_SUCCESS.
LONG ErrorOf(std::uint64_t key);

// Refuses a value that was made up because this key could not be read, through any handle and for any key,
// until this key has been read.
void RefuseValue(std::uint64_t key, std::uint64_t value);

// The error because of which the value is refused, or ERROR_SUCCESS.
LONG RefusalOf(std::uint64_t value);

} // namespace RegistryFailures
