// The outline that is built from the unit library's flat list.
#include "support/ScriptedModel.h"

#include <gtest/gtest.h>
#include <sstream>

namespace
{

// Each entry and each row is quantity.sub-quantity.index.device.flags, a row behind a plus for each level.
std::string Outline(const char* entries)
{
    std::istringstream list(entries);
    std::vector<test::UnitEntry> units;
    char point = 0;
    for (test::UnitEntry unit; list >> unit.Quantity >> point >> unit.SubQuantity >> point >> unit.Index >>
                               point >> unit.Device >> point >> unit.Flags;)
        units.push_back(unit);
    test::SetUnits(std::move(units));
    k_StyleAtlas atlas;
    atlas.ColumnCount = 1;
    atlas.BuildCatalogue();
    EXPECT_EQ(atlas.BuildCatalogue(), atlas.Rows.GetSize()); // starts anew
    std::ostringstream text;
    for (INT_PTR i = 0; i < atlas.Rows.GetSize(); ++i) {
        const k_QuantityDesc& row = *atlas.GetRow(i);
        text << (i > 0 ? " " : "") << std::string(row.Level, '+') << row.Quantity << '.' << row.SubQuantity
             << '.' << int{row.Index} << '.' << row.Device << '.' << row.Flags;
    }
    return text.str();
}

TEST(Catalogue, IsAnOutlineOfThreeLevels)
{
    const struct {
        const char* Name;
        const char* Entries;
        const char* Outline;
    } cases[] = {
        {"nothing", "", ""},
        {"a single entry keeps its whole key", "10.4.5.3.6", "10.4.5.3.6"},
        {"one on each of two devices", "10.4.0.1.0 10.4.0.2.0", "10.4.0.1.0 10.4.0.2.0"},
        {"groups in order of first appearance, heads, and what hangs below them",
         "30.5.0.0.0 10.0.0.0.0 20.1.0.0.0 20.2.0.0.0 20.2.1.0.0 20.1.0.1.0 20.2.2.0.0 30.5.1.0.0",
         "30.65535.0.0.0 +30.5.0.0.0 +30.5.1.0.0 10.0.0.0.0 20.65535.0.0.0 +20.1.0.0.0 +20.2.0.0.0 "
         "++20.2.1.0.0 ++20.2.2.0.0 20.1.0.1.0"},
        {"one sub-quantity has no head, and two equal entries stay two rows", "10.4.0.0.9 10.4.0.0.9",
         "10.65535.0.0.0 +10.4.0.0.9 +10.4.0.0.9"},
        {"a head has index 0 and the flags of the first entry; what equals it disappears",
         "10.1.3.0.5 10.2.0.0.0 10.1.0.0.5 10.1.0.0.7 10.1.3.0.5 10.1.0.0.5",
         "10.65535.0.0.0 +10.1.0.0.5 ++10.1.3.0.5 +10.1.0.0.7 ++10.1.3.0.5 +10.2.0.0.0"},
        {"only the low byte of sub-quantity and index counts", "10.257.511.0.0", "10.1.255.0.0"},
        {"that of -1 is 255", "10.-1.0.0.0", "10.255.0.0.0"},
        {"sub-quantities that their low byte makes equal", "10.1.0.0.0 10.257.0.0.0",
         "10.65535.0.0.0 +10.1.0.0.0 +10.1.0.0.0"},
        {"an entry without a device takes the later entries of its quantity, but for those of a device that "
         "came before it",
         "10.1.0.1.0 10.1.0.-1.0 11.1.0.2.0 10.2.0.2.0 10.1.1.1.0 10.2.1.-1.0 10.1.2.2.0",
         "10.65535.0.1.0 +10.1.0.1.0 +10.1.1.1.0 10.65535.0.-1.0 +10.1.0.-1.0 ++10.1.2.2.0 +10.2.0.2.0 "
         "++10.2.1.-1.0 11.1.0.2.0"}};
    for (const auto& each : cases)
        EXPECT_EQ(Outline(each.Entries), each.Outline) << each.Name;
}

} // namespace
