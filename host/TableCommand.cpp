#include "Commands.h"

#include "QuantityNames.h"
#include "TextTable.h"
#include "Texts.h"

#include <bindings/terminal/StyleWords.h>
#include <bindings/terminal/Text.h>

#include <iostream>
#include <string>

namespace atlashost
{

using styleatlas::terminal::ColorDepth;
using styleatlas::terminal::ColorsOfOutput;
using styleatlas::terminal::Hexadecimal;
using styleatlas::terminal::Printable;
using styleatlas::terminal::StyleCell;

int ShowTable(std::int16_t fileColumn)
{
    const QuantityNames names;
    const ColorDepth colors = ColorsOfOutput();
    TextTable table{{{Text("Device"), Align::Right},
                     {Text("Quantity"), Align::Right},
                     {Text("Sub"), Align::Right},
                     {Text("Index"), Align::Right},
                     {Text("Flags"), Align::Right},
                     {Text("Symbol")},
                     {Text("Name")},
                     {Text("Style")}}};
    for (const MeasuredQuantity& quantity : names.All())
        table.AddRow({std::to_string(quantity.key.device), std::to_string(quantity.key.quantity),
                      std::to_string(quantity.key.subQuantity), std::to_string(quantity.key.index),
                      Hexadecimal(quantity.key.flags), Printable(quantity.symbol), Printable(quantity.name),
                      StyleCell(styleatlas::StyleOf(fileColumn, quantity.key), colors, Text)});
    if (table.IsEmpty())
        std::cout << Text("The unit library has no quantities.") << '\n';
    else
        table.Print(std::cout);
    return Succeeded;
}

} // namespace atlashost
