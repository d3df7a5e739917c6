// The dialogs and the menu embedded in the module, and damaged ones.
#include "support/ResourceText.h"

#include <dialogs/resource.h>
#include <platform/system/Unicode.h>
#include <platform/user/DialogInit.h>
#include <platform/user/DialogTemplate.h>
#include <platform/user/MenuTemplate.h>
#include <platform/user/ResourceFile.h>

#include <gtest/gtest.h>

namespace
{

using Bytes = std::vector<std::byte>;
using test::DialogText;
using test::MenuText;

// Styles: 50010001 default button, 50010000 button, 50020000 text, 5002800c one line of text shortened in the
// middle; 4... is hidden.
constexpr const char* atlasDialog = "80c800c8 'Symbol/Color style atlas' 0,0,508,347\n"
                                    "font 8 0 MS Shell Dlg\n"
                                    "1 Button 50010001 'OK' 435,15,66,16\n"
                                    "2 Button 50010000 'Cancel' 435,33,66,16\n"
                                    "1001 Static 50020000 '' 19,27,406,305\n"
                                    "1022 Button 50010000 'Load...' 435,68,66,14\n"
                                    "1023 Button 50010000 'Save as...' 435,84,66,14\n"
                                    "1024 Static 5002800c '' 83,11,327,12\n"
                                    "-1 Static 50020000 'Layout file:' 19,11,59,8\n"
                                    "1025 Button 40010000 'Unit-Log' 477,308,24,10\n";

bool IsReadable(ResourceType type, std::span<const std::byte> bytes)
{
    return type == ResourceType::Menu     ? ReadMenuTemplate(bytes).has_value()
           : type == ResourceType::Dialog ? ReadDialogTemplate(bytes).has_value()
                                          : ReadDialogInit(bytes).has_value();
}

TEST(ResourcesTest, TheDialogsAreWhatTheirClassesExpect)
{
    EXPECT_EQ(DialogText(FindResource(ResourceType::Dialog, IDD_STYLE_ATLAS)), atlasDialog);
    // Boxes with pictures are owner-drawn without texts; boxes with numbers are editable.
    const std::string curveDialog = DialogText(FindResource(ResourceType::Dialog, IDD_CURVE_LAYOUT));
    for (const char* const box :
         {"1004 ComboBox 50210023", "1009 ComboBox 50210023", "1019 ComboBox 50210002",
          "1020 ComboBox 50210002", "1021 ComboBox 50210003"})
        EXPECT_NE(curveDialog.find(box), std::string::npos) << curveDialog;
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

// Reads exact copies, so that the sanitizers see every read past the end.
TEST(ResourcesTest, NoShortResourceIsReadPastItsEnd)
{
    for (const auto& [type, id] : {std::pair(ResourceType::Dialog, IDD_STYLE_ATLAS),
                                   {ResourceType::Dialog, IDD_CURVE_LAYOUT},
                                   {ResourceType::Menu, IDR_STYLE_ATLAS_MENU},
                                   {ResourceType::DialogInit, IDD_CURVE_LAYOUT}}) {
        const auto whole = FindResource(type, id);
        ASSERT_TRUE(IsReadable(type, whole));
        for (std::size_t size = 0; size < whole.size(); ++size)
            EXPECT_FALSE(IsReadable(type, Bytes(whole.begin(), whole.begin() + size))) << size;
    }
    EXPECT_TRUE(FindResource(ResourceType::Menu, IDD_STYLE_ATLAS).empty()) << "of another type";
}

TEST(ResourcesTest, PopupsInPopupsEnd)
{
    for (const auto& [popups, readable] : {std::pair{15, true}, {16, false}, {100000, false}}) {
        Bytes bytes(4); // the header, then popups without a text, each the last of its level, and one command
        for (int i = 0; i < popups; ++i)
            bytes.insert(bytes.end(), {std::byte{0x90}, {}, {}, {}});
        bytes.insert(bytes.end(), {std::byte{0x80}, {}, std::byte{1}, {}, {}, {}});
        EXPECT_EQ(IsReadable(ResourceType::Menu, bytes), readable) << popups;
    }
}

} // namespace
