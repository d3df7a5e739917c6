/* A host that sets its name, asks for one style, prints a line, waits for input, and ends; the exit code is 0
 * if it got a style. */
#include <stdio.h>
#include <styleatlas.h>

enum { activePower = 32, ofPhase1 = 1, analyser = 4, isOfPhase = 2 };

int main(void)
{
    uint32_t symbolColor;
    uint32_t lineColor;
    int16_t symbolShape;
    int16_t symbolSize;
    int16_t symbolFill;
    int16_t lineStyle;
    int16_t lineWidth;
    uint8_t useSymbolColor;
    int found;
    StyleAtlasSetApplication(u"Bench");
    found = GetStyleAtlas(0, activePower, 0, ofPhase1, analyser, isOfPhase, &symbolColor, &symbolShape,
                          &symbolSize, &symbolFill, &lineColor, &lineStyle, &lineWidth, &useSymbolColor);
    puts("");
    fflush(stdout);
    getchar();
    return found == 1 ? 0 : 1;
}
