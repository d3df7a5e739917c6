// What the column tree has to stand: many rows and columns, long labels, no room at all.
#include "support/AtlasDialog.h"

#include <gtest/gtest.h>
#include <string>

namespace
{

class ColumnTreeStands : public testing::TestWithParam<std::pair<int, DWORD>>
{
protected:
    k_ColumnTreeCtrl& Frame() { return m_dialog.m_ColumnTree; }

    int CountRows()
    {
        int count = 0;
        const k_CustomTreeChildCtrl& tree = Frame().m_Tree;
        for (HTREEITEM row = tree.GetNextItem(nullptr, TVGN_ROOT); row != nullptr;
             row = tree.GetNextTreeItem(row))
            ++count;
        return count;
    }

    test::AtlasDialog m_dialog;
};

TEST_P(ColumnTreeStands, AnyTable)
{
    const int rows = GetParam().first;
    const DWORD columns = GetParam().second;
    test::SetTable({}, columns);
    for (int i = 0; i < rows; ++i)
        g_StyleAtlas.AddRow({static_cast<WORD>(i + 1), 0, 0, -1, 0}, static_cast<BYTE>(i % 3));
    m_dialog.RunInside([&] {
        const HTREEITEM added = Frame().InsertItem(CString(std::u16string(200, u'W').c_str()), TVI_ROOT);
        EXPECT_EQ(CountRows(), rows + 1);
        for (const int side : {300, 40, 20, 1, 0, 200}) {
            Frame().MoveWindow(0, 0, side, side);
            Frame().m_Tree.EnsureVisible(added);
            for (const UINT key : {VK_RIGHT, VK_DOWN, VK_DOWN, VK_UP, VK_LEFT, VK_SUBTRACT, VK_ADD}) {
                Frame().m_cellItem = m_dialog.Row(0);
                Frame().m_cellColumn = columns > 0 ? 1 : 0;
                test::PressKey(Frame().m_Tree, key);
                Frame().RedrawWindow();
            }
        }
        Frame().m_Tree.CollapseAll();
        Frame().m_Tree.ExpandAll();
        Frame().MoveWindow(0, 0, 400, 200);
        if (columns > 0) {
            Frame().SendMessage(WM_HSCROLL, SB_LEFT, 0);
            test::PressMouse(Frame().m_Header, {209, 5});
            for (int x = 209; x >= 20; --x)
                test::DragMouse(Frame().m_Header, {x, 5});
            test::ReleaseMouse(Frame().m_Header, {20, 5});
            EXPECT_EQ(Frame().m_columnWidths[1], 0);
        }
        m_dialog.FillTree();
        EXPECT_EQ(Frame().m_cellItem, nullptr);
        EXPECT_EQ(CountRows(), rows);
        Frame().RedrawWindow();
    });
}

INSTANTIATE_TEST_SUITE_P(Tables, ColumnTreeStands,
                         testing::ValuesIn(std::vector<std::pair<int, DWORD>>{
                             {0, 0}, {0, 32}, {1, 1}, {1, 7}, {300, 0}, {300, 32}, {5000, 1}, {5000, 32}}));

} // namespace
