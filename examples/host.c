/* A whole host: it makes the folder of its layout file, names itself, and asks how the wind speed of the
 * second file is drawn. */
#define _POSIX_C_SOURCE 200809L
#include "layout_folder.h"

#include <stdio.h>
#include <styleatlas.h>

int main(void)
{
    uint32_t symbolColor, lineColor; /* red in the lowest byte */
    int16_t shape, size, fill, style, width;
    uint8_t useSymbolColor;

    MakeLayoutFolder("AirLab");
    StyleAtlasSetApplication(u"AirLab");
    if (!GetStyleAtlas(1, 12, 2, 0, 3, 1, &symbolColor, &shape, &size, &fill, &lineColor, &style, &width,
                       &useSymbolColor))
        return 1;
    printf("symbol %d, size %d, fill %d, colour 0x%06X; ", shape, size, fill, (unsigned)symbolColor);
    printf("line %d, width %d, colour 0x%06X, as the symbol: %d\n", style, width, (unsigned)lineColor,
           useSymbolColor);
    return 0;
}
