/* A whole host: it makes the folder of its layout file, names itself, and asks how the wind speed of the
 * second file is drawn. */
#define _POSIX_C_SOURCE 200809L
#include <errno.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <styleatlas.h>
#include <sys/stat.h>

#define LAYOUT_FOLDER "drive_c/ProgramData/Halvorn/AirLab"

/* The folder of the layout file; 0 where the environment names no place for it. */
static int FindFolder(char* path, size_t size)
{
    const char* const prefix = getenv("STYLEATLAS_PREFIX");
    const char* const data = getenv("XDG_DATA_HOME");
    const char* const home = getenv("HOME");
    int length = -1;
    if (prefix != NULL && *prefix != '\0')
        length = snprintf(path, size, "%s/%s", prefix, LAYOUT_FOLDER);
    else if (data != NULL && *data == '/')
        length = snprintf(path, size, "%s/styleatlas/%s", data, LAYOUT_FOLDER);
    else if (home != NULL && *home == '/')
        length = snprintf(path, size, "%s/.local/share/styleatlas/%s", home, LAYOUT_FOLDER);
    return length > 0 && (size_t)length < size;
}

/* Makes it, and the folders above it that are missing. Without it the styles are shown, but cannot be saved.
 */
static void MakeFolder(char* path)
{
    char* end = path;
    while ((end = strchr(end + 1, '/')) != NULL) {
        *end = '\0';
        mkdir(path, S_IRWXU);
        *end = '/';
    }
    if (mkdir(path, S_IRWXU) != 0 && errno != EEXIST)
        perror(path);
}

int main(void)
{
    char folder[4096];
    uint32_t symbolColor, lineColor; /* red in the lowest byte */
    int16_t shape, size, fill, style, width;
    uint8_t useSymbolColor;

    if (FindFolder(folder, sizeof folder))
        MakeFolder(folder);
    StyleAtlasSetApplication(u"AirLab");
    if (!GetStyleAtlas(1, 12, 2, 0, 3, 1, &symbolColor, &shape, &size, &fill, &lineColor, &style, &width,
                       &useSymbolColor))
        return 1;
    printf("symbol %d, size %d, fill %d, colour 0x%06X; ", shape, size, fill, (unsigned)symbolColor);
    printf("line %d, width %d, colour 0x%06X, as the symbol: %d\n", style, width, (unsigned)lineColor,
           useSymbolColor);
    return 0;
}
