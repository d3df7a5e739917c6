// The dialogs and the menu embedded in the module.
#include "support/ResourceText.h"

#include <dialogs/resource.h>
#include <platform/user/DialogInit.h>
#include <platform/user/ResourceFile.h>

#include <gtest/gtest.h>

namespace
{

using namespace test;

// Styles: 50010001 default button, 50010000 button, 50020000 text, 5002800c shortened text; 4... is hidden.
constexpr const char* atlasDialog = "80c800c8 'Symbol/Color style atlas' 0,0,508,347\n"
                                    "font 8\n"
                                    "1 Button 50010001 'OK' 435,15,66,16\n"
                                    "2 Button 50010000 'Cancel' 435,33,66,16\n"
                                    "1001 Static 50020000 '' 19,27,406,305\n"
                                    "1022 Button 50010000 'Load...' 435,68,66,14\n"
                                    "1023 Button 50010000 'Save as...' 435,84,66,14\n"
                                    "1024 Static 5002800c '' 83,11,327,12\n"
                                    "-1 Static 50020000 'Layout file:' 19,11,59,8\n"
                                    "1025 Button 40010000 'Unit-Log' 477,308,24,10\n";

TEST(ResourcesTest, TheDialogsAreWhatTheirClassesExpect)
{
    EXPECT_EQ(DialogText(FindResource(ResourceType::Dialog, IDD_STYLE_ATLAS)), atlasDialog);
}

TEST(ResourcesTest, TheMenuAndTheNumberListsAreInOrder)
{
    EXPECT_EQ(MenuText(FindResource(ResourceType::Menu, IDR_STYLE_ATLAS_MENU)),
              "p0 Init file colours\n c32771 Set file symbols\n c32772 Set file colors\n"
              " c32774 Set main quantity symbols\n c32773 Set main quantity colors\n s0 \n"
              " c32775 Expand all\n c32776 Collapse all\n");
    const auto entries = ReadDialogInit(FindResource(ResourceType::DialogInit, IDD_CURVE_LAYOUT));
    ASSERT_TRUE(entries);
    std::string lists[2];
    for (const DialogInitEntry& entry : *entries) {
        EXPECT_EQ(entry.Message, initAddToComboBox);
        lists[entry.ControlId - 1019] += ToUtf8(entry.Text) + ' ';
    }
    EXPECT_EQ(lists[0], "2 3 4 5 6 7 8 9 10 11 12 13 14 15 20 25 ");
    EXPECT_EQ(lists[1], "1 2 3 4 5 6 7 8 9 10 ");
}

} // namespace
