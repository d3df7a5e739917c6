// What could not be looked at in the registry, so that nothing is written on the strength of it: a value that
// is there but could not be read is not the same as one that is missing. Nothing here allocates, since a look
// may have failed for want of memory. Calls must not overlap.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string_view>

// Whether the outcome of opening a key or reading a value tells what is there, as not being there does.
bool IsAnswer(LONG result);

// Keys without regard to case and to empty parts of their paths, values with all their bytes.
std::uint64_t KeyMark(std::u16string_view subKey);
std::uint64_t ValueMark(std::u16string_view name, DWORD type, std::string_view bytes);

namespace FailedLooks
{

// Keeps how a look at the key ended; one that told all there is to know makes what was kept of the key void.
void Keep(std::uint64_t key, LONG result);

// The opening of the key told that it is there, and nothing of its values.
void Opened(std::uint64_t key);

// How the last opening of the key failed; ERROR_SUCCESS where it didn't.
LONG OpeningOf(std::uint64_t key);

// Keeps the value as one that was made up since this key could not be read, until the key has been. It can
// come again through another handle, and for another key.
void Refuse(std::uint64_t key, std::uint64_t value);

// The failure on account of which this value was made up; ERROR_SUCCESS for any other value.
LONG RefusalOf(std::uint64_t value);

} // namespace FailedLooks
