/* Stands before the system's functions for files, and before SQLite's, and lets one call fail. Declares them
 * itself, as the headers have other forms of some. */
#include <dlfcn.h>
#include <errno.h>
#include <stddef.h>

long systemCallsLeft = -1; /* calls until one fails; below 0 none does */
long databaseCallsLeft = -1;
int systemFailure = EIO; /* the errno of the one that fails */

#define STAND_IN(type, name, parameters, arguments, left, failed)                                            \
    type name parameters                                                                                     \
    {                                                                                                        \
        static type(*real) parameters;                                                                       \
        if (real == NULL)                                                                                    \
            *(void**)&real = dlsym(RTLD_NEXT, #name);                                                        \
        if (left < 0 || left-- > 0)                                                                          \
            return real arguments;                                                                           \
        failed;                                                                                              \
    }
#define SYSTEM(type, name, parameters, arguments)                                                            \
    STAND_IN(type, name, parameters, arguments, systemCallsLeft, errno = systemFailure; return -1)
#define DATABASE(name, parameters, arguments, failed)                                                        \
    STAND_IN(int, name, parameters, arguments, databaseCallsLeft, failed)

SYSTEM(int, open, (const char* path, int flags, unsigned mode), (path, flags, mode))
SYSTEM(int, open64, (const char* path, int flags, unsigned mode), (path, flags, mode))
SYSTEM(int, openat, (int folder, const char* path, int flags, unsigned mode), (folder, path, flags, mode))
SYSTEM(int, openat64, (int folder, const char* path, int flags, unsigned mode), (folder, path, flags, mode))
SYSTEM(long, read, (int file, void* to, size_t size), (file, to, size))
SYSTEM(long, pread, (int file, void* to, size_t size, long at), (file, to, size, at))
SYSTEM(long, pread64, (int file, void* to, size_t size, long at), (file, to, size, at))
SYSTEM(long, write, (int file, const void* from, size_t size), (file, from, size))
SYSTEM(long, pwrite, (int file, const void* from, size_t size, long at), (file, from, size, at))
SYSTEM(long, pwrite64, (int file, const void* from, size_t size, long at), (file, from, size, at))
SYSTEM(long, sendfile, (int to, int from, long* at, size_t size), (to, from, at, size))
SYSTEM(int, fsync, (int file), (file))
SYSTEM(int, fdatasync, (int file), (file))
SYSTEM(int, ftruncate, (int file, long size), (file, size))
SYSTEM(int, ftruncate64, (int file, long size), (file, size))
SYSTEM(int, fallocate, (int file, int mode, long from, long size), (file, mode, from, size))
SYSTEM(int, rename, (const char* from, const char* to), (from, to))
SYSTEM(int, renameat2, (int in, const char* from, int out, const char* to, unsigned flags),
       (in, from, out, to, flags))
SYSTEM(int, link, (const char* from, const char* to), (from, to))

enum { busy = 5, noMemory = 7, cannotOpen = 14 }; /* results of SQLite */

DATABASE(sqlite3_open_v2, (const char* path, void** database, int flags, const char* layer),
         (path, database, flags, layer), *database = NULL;
         return cannotOpen)
DATABASE(sqlite3_prepare_v2,
         (void* database, const char* text, int size, void** statement, const char** tail),
         (database, text, size, statement, tail), *statement = NULL;
         return noMemory)
DATABASE(sqlite3_step, (void* statement), (statement), return busy)
DATABASE(sqlite3_exec, (void* database, const char* text, void* heard, void* argument, char** message),
         (database, text, heard, argument, message), return busy)
