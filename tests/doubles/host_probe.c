/* A host in plain C. Its arguments are calls, carried out in order; each prints one line.
 *   name=TEXT            StyleAtlasSetApplication
 *   user=ROOT|KEY        StyleAtlasChangeUserInfo
 *   reload               ReloadStyleAtlas
 *   edit                 EditStyleAtlas: its result
 *   get=COLUMN,QUANTITY,SUB,INDEX,DEVICE,FLAGS
 *                        GetStyleAtlas: its result and the eight values, which are 7 beforehand */
#include <include/styleatlas.h>

#include <stdio.h>
#include <stdlib.h>
#include <string.h>

enum { longestText = 4096 };

static const char16_t* Wide(const char* text, size_t length, char16_t* buffer)
{
    size_t i = 0;
    for (; i < length && i < longestText - 1; ++i)
        buffer[i] = (char16_t)text[i];
    buffer[i] = 0;
    return buffer;
}

static void Get(const char* text)
{
    long numbers[6] = {0};
    for (int i = 0; i < 6; ++i) {
        char* end = NULL;
        numbers[i] = strtol(text, &end, 0);
        text = *end == ',' ? end + 1 : end;
    }
    uint32_t symbolColor = 7;
    uint32_t lineColor = 7;
    int16_t shape = 7;
    int16_t size = 7;
    int16_t fill = 7;
    int16_t style = 7;
    int16_t width = 7;
    uint8_t useSymbolColor = 7;
    const int found =
        GetStyleAtlas((int16_t)numbers[0], (uint16_t)numbers[1], (uint8_t)numbers[2], (uint8_t)numbers[3],
                      (uint16_t)numbers[4], (uint32_t)numbers[5], &symbolColor, &shape, &size, &fill,
                      &lineColor, &style, &width, &useSymbolColor);
    printf("%d: %06X %d %d %d %06X %d %d %d\n", found, (unsigned)symbolColor, shape, size, fill,
           (unsigned)lineColor, style, width, useSymbolColor);
}

int main(int argc, char** argv)
{
    static char16_t first[longestText];
    static char16_t second[longestText];
    for (int i = 1; i < argc; ++i) {
        const char* const call = argv[i];
        if (strncmp(call, "name=", 5) == 0) {
            StyleAtlasSetApplication(Wide(call + 5, strlen(call + 5), first));
            puts("named");
        } else if (strncmp(call, "user=", 5) == 0) {
            const char* const root = call + 5;
            const size_t length = strcspn(root, "|");
            StyleAtlasChangeUserInfo(Wide(root, length, first),
                                     Wide(root + length + 1, strlen(root + length + 1), second));
            puts("changed");
        } else if (strcmp(call, "reload") == 0) {
            ReloadStyleAtlas();
            puts("reloaded");
        } else if (strcmp(call, "edit") == 0) {
            printf("edit: %d\n", EditStyleAtlas(0));
        } else if (strncmp(call, "get=", 4) == 0) {
            Get(call + 4);
        } else {
            return EXIT_FAILURE;
        }
        fflush(stdout);
    }
    return EXIT_SUCCESS;
}
