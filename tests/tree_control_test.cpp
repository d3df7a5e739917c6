// The tree: results of its messages, notifications of its parent, custom draw.
#include "support/Gui.h"
#include "support/Picture.h"

#include <QtWidgets>
#include <afxcmn.h>

namespace
{

constexpr int square = 19;    // indentation of a level
constexpr int rowHeight = 16; // with the smallest fonts
constexpr COLORREF ours = RGB(1, 2, 3);

class Tree : public testing::Test, public CWnd // the tree's parent
{
protected:
    Tree()
    {
        QApplication::setLayoutDirection(Qt::RightToLeft); // of the desktop, not of the tree
        CreateEx(0, AfxRegisterWndClass(0), _T(""), WS_POPUP | WS_VISIBLE, 50, 40, 300, 200, nullptr, 0);
        m_tree.Create(WS_CHILD | WS_VISIBLE | TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT,
                      CRect(10, 20, 210, 20 + 5 * rowHeight), this, 2);
        test::Settle();
        UseFont(-6);
        Fill();
    }
    ~Tree() override { QApplication::setLayoutDirection(Qt::LeftToRight); }
    void UseFont(LONG height)
    {
        LOGFONTW wanted{};
        wanted.lfHeight = height;
        CFont font; // deleted early, but the tree holds it
        font.CreateFontIndirect(&wanted);
        m_tree.SetFont(&font);
    }
    void Fill()
    {
        a = Add(_T("a"));
        b = Add(_T("b"), a);
        c = Add(_T("c"), b);
        d = Add(_T("d"), a);
        e = Add(_T("e"));
    }
    HTREEITEM Add(LPCTSTR text, HTREEITEM parent = TVI_ROOT) // expanded
    {
        constexpr UINT mask = TVIF_TEXT | TVIF_STATE | TVIF_PARAM;
        constexpr UINT state = TVIS_EXPANDED;
        const TVINSERTSTRUCTW row{
            parent, TVI_LAST, {mask, nullptr, state, state, const_cast<LPWSTR>(text), 0, 0, 0, 0, text[0]}};
        return m_tree.InsertItem(&row);
    }
    void Delete(HTREEITEM row) { m_tree.SendMessage(TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(row)); }

    void Hear(std::string& log, const std::string& event)
    {
        log += event;
        if (m_deletesRows)
            Delete(TVI_ROOT);
    }
    BOOL OnNotify(WPARAM, LPARAM lParam, LRESULT* pResult) override
    {
        const int code = static_cast<int>(reinterpret_cast<const NMHDR*>(lParam)->code);
        const auto& folded = *reinterpret_cast<const NMTREEVIEWW*>(lParam);
        if (code == NM_CUSTOMDRAW)
            *pResult = Draw(*reinterpret_cast<const NMTVCUSTOMDRAW*>(lParam));
        else if (code == NM_RCLICK)
            Hear(m_heard, "right ");
        else
            Hear(m_heard, (folded.action == TVE_EXPAND ? '+' : '-') + Name(folded.itemNew.hItem));
        return TRUE;
    }
    LRESULT Draw(const NMTVCUSTOMDRAW& draw)
    {
        const auto row = reinterpret_cast<HTREEITEM>(draw.nmcd.dwItemSpec);
        if (row == nullptr)
            return CDRF_NOTIFYITEMDRAW;
        CDC& dc = *CDC::FromHandle(draw.nmcd.hdc);
        EXPECT_EQ(dc.GetTextExtent(_T("e"), 1).cx + 4, Label(e).Width());
        const bool isHighlighted = draw.clrTextBk == GetSysColor(COLOR_HIGHLIGHT);
        Hear(m_drawn, Name(row) + std::to_string(draw.nmcd.uItemState) + (isHighlighted ? "* " : " "));
        if (draw.nmcd.dwDrawStage == CDDS_ITEMPOSTPAINT)
            dc.FillSolidRect(&draw.nmcd.rc, ours);
        if (draw.nmcd.dwDrawStage == CDDS_ITEMPOSTPAINT && m_beyond)
            m_beyond(dc, CRect(0, draw.nmcd.rc.top - 5, 50, draw.nmcd.rc.bottom));
        return row == e ? CDRF_NOTIFYPOSTPAINT : CDRF_DODEFAULT;
    }
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == WM_CONTEXTMENU && static_cast<DWORD>(lParam) == GetMessagePos())
            m_heard += "menu";
        return CWnd::WindowProc(message, wParam, lParam);
    }

    std::string Name(HTREEITEM row) { return {row ? static_cast<char>(m_tree.GetItemData(row)) : '0'}; }
    std::string Next(UINT which, HTREEITEM row = nullptr) { return Name(m_tree.GetNextItem(row, which)); }
    std::string Scroll()
    {
        SCROLLINFO info{};
        m_tree.GetScrollInfo(SB_VERT, &info);
        return std::to_string(info.nMax) + ' ' + std::to_string(info.nPage) + ' ' + std::to_string(info.nPos);
    }
    CRect Label(HTREEITEM row)
    {
        CRect rect;
        EXPECT_TRUE(m_tree.GetItemRect(row, &rect, TRUE));
        return rect;
    }
    // Beside the left edge of a row's label.
    CPoint At(HTREEITEM row, int dx) { return {Label(row).left + dx, Label(row).top + 4}; }

    CTreeCtrl m_tree;
    HTREEITEM a, b, c, d, e; // a(b(c) d) e
    std::string m_heard;
    std::string m_drawn;
    bool m_deletesRows = false;                // at every notification
    std::function<void(CDC&, CRect)> m_beyond; // how the last row draws over the one above
};

TEST_F(Tree, KnowsItsRowsByHandlesThatStayTrue)
{
    EXPECT_EQ(Next(TVGN_ROOT) + Next(TVGN_FIRSTVISIBLE) + Next(TVGN_CARET), "aa0");
    const std::pair<HTREEITEM, std::string> cases[] = {
        {a, "e0bb0"}, {b, "dacca"}, {c, "0b0db"}, {d, "0a0ec"}, {e, "0000d"}};
    for (const auto& [row, relations] : cases)
        EXPECT_EQ(Next(TVGN_NEXT, row) + Next(TVGN_PARENT, row) + Next(TVGN_CHILD, row) +
                      Next(TVGN_NEXTVISIBLE, row) + Next(TVGN_PREVIOUSVISIBLE, row),
                  relations);
    EXPECT_EQ(m_tree.GetItemState(c, TVIS_EXPANDED | TVIS_SELECTED), TVIS_EXPANDED);
    Add(_T("f"), a);
    EXPECT_EQ(Next(TVGN_NEXT, b) + Next(TVGN_NEXT, d), "df");
    Delete(b);
    EXPECT_EQ(Next(TVGN_NEXT, d), "f") << "one place further up";
    Delete(TVI_ROOT);
    Fill();
    const std::u16string text(1000, u'x');
    EXPECT_EQ(m_tree.GetItemText(Add(text.c_str())), text.c_str());
    Delete(c); // then b is collapsed before it gets another child
    TVITEMW folded{TVIF_STATE, b, 0, TVIS_EXPANDED, nullptr, 0, 0, 0, 0, 0};
    m_tree.SetItem(&folded);
    Add(_T("x"), b);
    EXPECT_EQ(Next(TVGN_NEXTVISIBLE, b), "d");
    const HTREEITEM old = a;
    Delete(TVI_ROOT);
    Fill();
    Delete(b);
    for (const HTREEITEM gone : {old, b, c, TVI_LAST, reinterpret_cast<HTREEITEM>(this)}) {
        CRect rect;
        EXPECT_FALSE(m_tree.GetItemRect(gone, &rect, FALSE) || m_tree.EnsureVisible(gone) ||
                     m_tree.Expand(gone, TVE_EXPAND) || m_tree.Select(gone, TVGN_FIRSTVISIBLE) ||
                     m_tree.ItemHasChildren(gone) || m_tree.Select(gone, TVGN_CARET) || Add(_T("x"), gone));
        EXPECT_EQ(Next(TVGN_NEXT, gone) + Next(TVGN_PREVIOUSVISIBLE, gone), "00");
        EXPECT_EQ(m_tree.GetItemText(gone), _T(""));
    }
}

TEST_F(Tree, TellsPlacesApart)
{
    const CRect label = Label(b);
    EXPECT_EQ(CPoint(label.left, label.top), CPoint(2 * square, rowHeight));
    const std::pair<CPoint, UINT> cases[] = {
        {At(b, -square - 1), TVHT_ONITEMINDENT},  {At(b, -square), TVHT_ONITEMBUTTON},
        {At(b, -1), TVHT_ONITEMBUTTON},           {At(b, 0), TVHT_ONITEMLABEL},
        {At(b, label.Width()), TVHT_ONITEMRIGHT}, {At(b, label.Width() - 1), TVHT_ONITEMLABEL},
        {{199, label.top}, TVHT_ONITEMRIGHT},     {{200, label.top}, TVHT_NOWHERE},
        {At(c, -1), TVHT_ONITEMINDENT},           {{5, 5 * rowHeight}, TVHT_NOWHERE}};
    for (const auto& [point, expected] : cases) {
        UINT flags = 0;
        m_tree.HitTest(point, &flags);
        EXPECT_EQ(flags, expected) << point.x;
    }
    UseFont(-40);
    EXPECT_GT(Label(b).Height(), 40);
}

TEST_F(Tree, TellsItsParentWhatTheUserDoes)
{
    const auto key = [this](UINT which) { return [this, which] { test::PressKey(m_tree, which); }; };
    const std::pair<std::function<void()>, std::string> steps[] = {
        // and the caret afterwards
        {[&] { test::PressMouse(m_tree, At(b, 50)); }, " 0"}, // right of a label
        {[&] { test::ClickRight(m_tree, At(b, 3)); }, "right menu 0"},
        {[&] { test::PressMouse(m_tree, At(c, 3)); }, " c"},
        {[&] { test::PressMouse(m_tree, At(a, -9)); }, "-a a"}, // a selected row stays visible
        {[&] { test::ClickTwice(m_tree, At(a, 3)); }, "+a a"},
        {[&] { m_tree.Expand(a, TVE_EXPAND); }, " a"},
        {[&] { m_tree.Expand(b, TVE_COLLAPSE); }, "-b a"},
        {[&] { m_tree.Expand(a, TVE_COLLAPSE); }, "-a a"},
        {[&] { m_tree.Select(c, TVGN_CARET); }, "+a+b c"},
        {key(VK_RIGHT), " c"},
        {key(VK_LEFT), " b"},
        {key(VK_LEFT), "-b b"},
        {key(VK_RIGHT), "+b b"},
        {key(VK_SUBTRACT), "-b b"},
        {key(VK_ADD), "+b b"},
        {key(VK_RIGHT), " c"},
        {key(VK_DOWN), " d"},
        {key(8), " a"}, // back to the parent
        {[&] { test::PressKey(m_tree, VK_SPACE, Qt::ControlModifier); }, " a"},
        {key(VK_LEFT), "-a a"},
        {[&] { m_tree.Expand(b, TVE_COLLAPSE); }, "-b a"},
        {key(VK_MULTIPLY), "+a+b a"},
        {[&] { m_tree.Select(nullptr, TVGN_CARET); }, " 0"},
    };
    for (const auto& [act, told] : steps) {
        act();
        EXPECT_EQ(std::exchange(m_heard, {}) + ' ' + Next(TVGN_CARET), told);
    }
    m_tree.Select(d, TVGN_CARET);
    SetFocus();
    m_tree.Select(nullptr, TVGN_CARET);
    m_tree.SetFocus();
    EXPECT_EQ(Next(TVGN_CARET), "d") << "where it was";
    // The parent may change any row at a notification, even while painting.
    for (const int index : {3, 4, 7, 11}) {
        Delete(TVI_ROOT);
        Fill();
        m_tree.Select(a, TVGN_CARET);
        m_deletesRows = true;
        steps[index].first();
        EXPECT_EQ(Next(TVGN_ROOT) + Next(TVGN_CARET), "00");
        Fill();
        test::Settle();
        m_deletesRows = false;
    }
}

TEST_F(Tree, ScrollsByRows)
{
    EXPECT_EQ(Scroll(), "0 5 0");
    const HTREEITEM f = Add(_T("f"), e);
    EXPECT_EQ(Scroll(), "5 5 0");
    EXPECT_EQ(test::ClientOf(m_tree).x(), 0); // with the bar at the right
    EXPECT_EQ(Name(m_tree.HitTest({200 - GetSystemMetrics(SM_CXVSCROLL), 1})), "0");
    test::TurnWheel(m_tree, -120);
    EXPECT_EQ(Scroll(), "5 5 1");
    test::TurnWheel(m_tree, 120);
    m_tree.EnsureVisible(f);
    EXPECT_EQ(Scroll() + Next(TVGN_FIRSTVISIBLE), "5 5 1b");
    m_tree.MoveWindow(0, 0, 200, 2 * rowHeight);
    m_tree.Select(c, TVGN_FIRSTVISIBLE);
    EXPECT_EQ(Scroll() + Next(TVGN_FIRSTVISIBLE), "5 2 2c");
    m_tree.Expand(a, TVE_COLLAPSE);
    EXPECT_EQ(Scroll() + Next(TVGN_NEXTVISIBLE, c), "2 2 00") << "where the topmost row has gone";
    m_tree.Select(a, TVGN_FIRSTVISIBLE);
    for (const UINT code : {TVE_EXPAND, TVE_COLLAPSE}) {
        LockWindowUpdate(m_hWnd);
        for (const HTREEITEM row : {a, b, e})
            m_tree.Expand(row, code);
        const std::string locked = Scroll();
        LockWindowUpdate(nullptr);
        EXPECT_EQ(locked, Scroll());
        EXPECT_EQ(locked, code == TVE_EXPAND ? "5 2 0" : "0 2 0");
    }
    m_tree.Expand(e, TVE_EXPAND);
    LockWindowUpdate(m_hWnd);
    m_tree.Expand(a, TVE_EXPAND);
    const HTREEITEM late = Add(_T("x"), a);
    EXPECT_EQ(Scroll().substr(0, 3), "5 2");
    Delete(late);
    EXPECT_EQ(Scroll().substr(0, 3), "4 2");
    LockWindowUpdate(nullptr);
    QToolTip::showText({60, 60}, "of a row", &test::ClientOf(m_tree));
    m_tree.Select(f, TVGN_FIRSTVISIBLE);
    m_tree.Select(a, TVGN_FIRSTVISIBLE);
    EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }, 2000)) << "its row is elsewhere";
    m_tree.Expand(a, TVE_COLLAPSE);
    for (int i = 0; i < 5000; ++i)
        Add(_T("x"), i % 50 == 0 ? TVI_ROOT : e);
    m_tree.MoveWindow(0, 0, 0, 0);
    EXPECT_EQ(Scroll(), "5002 1 0");
    m_tree.MoveWindow(0, 0, 20, 80);
    test::Settle();
    EXPECT_EQ(test::ClientOf(m_tree).height(), 80) << "no bar below";
}

TEST_F(Tree, PaintsWhatHasChanged)
{
    test::Settle();
    const auto drawn = [this](const std::function<void()>& change) {
        m_drawn.clear();
        change();
        test::Settle();
        return std::exchange(m_drawn, {});
    };
    EXPECT_EQ(drawn([&] { m_tree.InvalidateRect(CRect(0, rowHeight, 9, rowHeight + 1)); }), "b0 ");
    TVITEMW text{TVIF_TEXT, d, 0, 0, const_cast<LPWSTR>(_T("other")), 0, 0, 0, 0, 0};
    EXPECT_NE(drawn([&] { m_tree.SetItem(&text); }).find("d0 "), std::string::npos);
    EXPECT_EQ(drawn([&] { m_tree.MoveWindow(10, 20, 250, 5 * rowHeight); }), "a0 b0 c0 d0 e0 e0 ") << "once";
    // What a row has drawn beyond its place is drawn whole with its neighbours, however it is drawn.
    const std::string all = "a0 b0 c0 d0 e0 e0 ";
    const std::function<void(CDC&, CRect)> ways[] = {
        [](CDC& dc, CRect box) { dc.Ellipse(box.left, box.top, box.right, box.bottom); },
        [](CDC& dc, CRect box) { dc.DrawEdge(&box, EDGE_RAISED, BF_RECT); },
        [](CDC& dc, CRect box) { dc.DrawFrameControl(&box, DFC_SCROLL, DFCS_SCROLLDOWN); },
        [](CDC& dc, CRect box) { dc.DrawFocusRect(&box); },
        [](CDC& dc, CRect box) { dc.DrawText(_T("x"), &box, DT_SINGLELINE); },
        [](CDC& dc, CRect box) { dc.BitBlt(0, box.top, 50, box.Height(), &dc, 0, 0, SRCCOPY); }};
    for (const auto& way : ways) {
        m_beyond = way;
        m_tree.InvalidateRect(nullptr);
        test::Settle();
        EXPECT_EQ(drawn([&] { m_tree.InvalidateRect(CRect(0, 0, 9, 1)); }), all) << &way - ways;
        m_beyond = nullptr;
        m_tree.InvalidateRect(nullptr);
        test::Settle();
        EXPECT_EQ(drawn([&] { m_tree.InvalidateRect(CRect(0, 0, 9, 1)); }), "a0 ");
    }
    m_beyond = ways[0]; // found at the painting of a part, which becomes that of the whole
    EXPECT_NE(drawn([&] { m_tree.InvalidateRect(CRect(0, 4 * rowHeight, 9, 4 * rowHeight + 1)); }).find(all),
              std::string::npos);
}

TEST_F(Tree, LetsItsParentDrawAlong)
{
    const test::DesktopColors colors({{QPalette::Dark, test::ink},
                                      {QPalette::Text, test::filling},
                                      {QPalette::Highlight, test::gapColor},
                                      {QPalette::HighlightedText, test::paper}});
    m_tree.Expand(b, TVE_COLLAPSE);
    m_tree.SetFocus();
    TVITEMW blocks{TVIF_TEXT, d, 0, 0, const_cast<LPWSTR>(_T("\u2588\u2588")), 0, 0, 0, 0, 0};
    m_tree.SetItem(&blocks);
    m_tree.Select(d, TVGN_CARET);
    m_drawn.clear();
    test::Picture picture(200, 90);
    constexpr std::size_t lineLength = 201;
    SetFocus();
    m_tree.SendMessage(WM_PAINT, reinterpret_cast<WPARAM>(picture.Dc().m_hDC));
    m_tree.SetFocus();
    m_tree.SendMessage(WM_PAINT, reinterpret_cast<WPARAM>(picture.Dc().m_hDC));
    EXPECT_EQ(m_drawn, "a0 b0 d1 e0 e0 a0 b0 d17* e0 e0 ");
    EXPECT_EQ(picture.PixelAt(199, 3 * rowHeight), gdi::ToPixel(ours));
    EXPECT_EQ(test::PixelOf(m_tree, {199, 3 * rowHeight}), ours);
    std::string lines; // across signs, dotted lines, and the label with the focus
    for (const std::size_t y : {1, 5, 13, 21, 23, 32, 33, 39, 40})
        lines += picture.Text().substr(lineLength * y, y < 32 ? 2 * square : 2 * square + 4) + '\n';
    EXPECT_EQ(lines, "                                      \n"
                     "     #       #                        \n"
                     "         #                            \n"
                     "         #              #   o   #     \n"
                     "         #              # ooooo ## # #\n"
                     "                            #         ?-?-\n"
                     "         #                            ----\n"
                     "         #                   # # # # #--..\n"
                     "                                      ?-..\n");
    EXPECT_NE(test::PixelOf(m_tree, {190, Label(d).top + 4}), test::gapColor);
    m_tree.ModifyStyle(0, TVS_FULLROWSELECT);
    EXPECT_EQ(test::PixelOf(m_tree, {190, Label(d).top + 4}), test::gapColor) << "the band of a whole row";
}

} // namespace
