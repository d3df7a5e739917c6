// The registry on disk: the SQLite file registry.db in the prefix folder. Functions return ERROR_SUCCESS or
// an error code of the registry, and throw std::bad_alloc.
#pragma once

#include "SqlDatabase.h"

enum class Opening { existing, creating };

// Opens a connection that holds no lock between transactions; its SQL knows the function fold(text) for
// FoldCase. ERROR_FILE_NOT_FOUND means that the file isn't there and wasn't to be created; an error while
// looking for it has a code of its own.
LONG OpenRegistryFile(Opening opening, Database& database);

// Renames a file that is no database, so that a new one can be created. Never replaces a file that was put
// aside earlier.
void PutRegistryFileAside();

// To be called after a lock was waited for in vain: for a while, connections opened on this thread wait only
// briefly, so that a host which goes on to its next call isn't held up again.
void ShortenRegistryWait();
