#include "Commands.h"

#include "QuantityNames.h"
#include "StyleWords.h"
#include "Text.h"
#include "TextTable.h"

#include <iostream>
#include <string>

namespace atlashost
{

int ShowTable(std::int16_t fileColumn)
{
    const QuantityNames names;
    const ColorDepth colors = ColorsOfOutput();
    TextTable table{{{"Device", Align::Right},
                     {"Quantity", Align::Right},
                     {"Sub", Align::Right},
                     {"Index", Align::Right},
                     {"Flags", Align::Right},
                     {"Symbol"},
                     {"Name"},
                     {"Style"}}};
    for (const MeasuredQuantity& quantity : names.All())
        table.AddRow({std::to_string(quantity.device), std::to_string(quantity.quantity),
                      std::to_string(quantity.subQuantity), std::to_string(quantity.index),
                      Hexadecimal(quantity.flags), Printable(quantity.symbol), Printable(quantity.name),
                      StyleCell(StyleOf(fileColumn, quantity), colors)});
    if (table.IsEmpty())
        std::cout << "The unit library has no quantities.\n";
    else
        table.Print(std::cout);
    return Succeeded;
}

} // namespace atlashost
