// The reader of the JSON documents of layout files: what it accepts survives a round trip.
#include "Fuzz.h"

#include <tools/LayoutDocument.h>

#include <sstream>
#include <stdexcept>

void fuzz::Try(std::string_view bytes)
{
    using namespace atlaslayout;
    std::istringstream document{std::string{bytes}};
    LayoutContents contents;
    try {
        contents = ReadDocument(document);
    } catch (const std::runtime_error&) {
        return;
    }
    std::stringstream written;
    WriteDocument(written, contents);
    const LayoutContents again = ReadDocument(written);
    Require(again.head == contents.head && again.rows == contents.rows,
            "what was written reads as something else");
    for (const LayoutRow& row : contents.rows)
        Require(row.runs.empty() ? row.recordCount == 0 : row.runs.back().end == row.recordCount,
                "the runs of a row do not cover its records");
}
