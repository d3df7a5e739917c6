/* Makes the folder of a host's layout file. Without it the styles are shown, but cannot be saved. */
#ifndef LAYOUT_FOLDER_H
#define LAYOUT_FOLDER_H

#include <errno.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/stat.h>

/* The path of the folder; 0 if the environment names no place for it. */
static inline int FindLayoutFolder(const char* host, char* path, size_t size)
{
    const char* const prefix = getenv("STYLEATLAS_PREFIX");
    const char* const data = getenv("XDG_DATA_HOME");
    const char* const home = getenv("HOME");
    int length = -1;
    if (prefix != NULL && *prefix != '\0')
        length = snprintf(path, size, "%s/drive_c/ProgramData/Halvorn/%s", prefix, host);
    else if (data != NULL && *data == '/')
        length = snprintf(path, size, "%s/styleatlas/drive_c/ProgramData/Halvorn/%s", data, host);
    else if (home != NULL && *home == '/')
        length =
            snprintf(path, size, "%s/.local/share/styleatlas/drive_c/ProgramData/Halvorn/%s", home, host);
    return length > 0 && (size_t)length < size;
}

/* Makes it, and the folders above it that are missing, for the user alone. */
static inline void MakeLayoutFolder(const char* host)
{
    char path[4096];
    char* end = path;
    if (!FindLayoutFolder(host, path, sizeof path))
        return;
    while ((end = strchr(end + 1, '/')) != NULL) {
        *end = '\0';
        mkdir(path, S_IRWXU);
        *end = '/';
    }
    if (mkdir(path, S_IRWXU) != 0 && errno != EEXIST)
        perror(path);
}

#endif
