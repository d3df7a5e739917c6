// A host in C++: how the wind speed is drawn in each file column.
#include "layout_folder.h"

#include <cstdio>
#include <styleatlas.hpp>

int main()
{
    MakeLayoutFolder("AirLab");
    styleatlas::SetApplication(u"AirLab");
    for (int column = 0; column < styleatlas::FileColumns; ++column) {
        const auto style = styleatlas::StyleOf(column, {12, 2, 0, 3, 1});
        if (!style)
            return 1;
        const styleatlas::Color symbol = style->symbolColor;
        const styleatlas::Color line = style->DrawnLineColor();
        std::printf("%d: symbol %d of size %d in #%02X%02X%02X, line of width %d in #%02X%02X%02X\n", column,
                    static_cast<int>(style->symbolShape), style->symbolSize, symbol.Red(), symbol.Green(),
                    symbol.Blue(), style->lineWidth, line.Red(), line.Green(), line.Blue());
    }
    return 0;
}
