// The tree of the style atlas dialog: filled, painted and scrolled, against a QTreeView that shows the same.
#include "PeerTree.h"
#include "ScriptedModel.h"
#include "Suite.h"

#include <QApplication>
#include <QScrollBar>
#include <QTimer>
#include <Window.h>
#include <cstdlib>
#include <dialogs/StyleAtlasDialog.h>
#include <exception>
#include <functional>
#include <memory>
#include <model/QuantityDesc.h>
#include <stdexcept>

namespace
{

constexpr double repaintGoal = 0.4;
constexpr double lineDownGoal = 1;
constexpr double lineSidewaysGoal = 1.5;
constexpr double dragGoal = 0.5;
constexpr double foldGoal = 1;
constexpr double fillGoal = 1;
constexpr double growthGoal = 1.25; // allows for the cache misses of a larger table
constexpr int rowsOfDrag = 40;      // more than a page
constexpr int tableSizes[] = {300, 3000, 30000};
constexpr int rowsOfGroup = 10;
constexpr double maxDifferent = 0.1; // of the pixels of the cells

// Groups of ten rows, styled by the bulk rules.
void MakeTable(int rows)
{
    g_StyleAtlas.Clear();
    g_StyleAtlas.ColumnCount = k_MaxFileColumns;
    for (int row = 0; row < rows; ++row) {
        const auto group = static_cast<WORD>(row / rowsOfGroup + 1);
        const auto index = static_cast<BYTE>(row % rowsOfGroup);
        g_StyleAtlas.AddRow({group, 0, index, -1, 0}, index == 0 ? 0 : 1);
    }
    g_StyleAtlas.SetFileSymbols(0, k_MaxFileColumns);
    g_StyleAtlas.SetFileColors(0, k_MaxFileColumns);
}

void Settle()
{
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
}

enum class End { Left, Right };

// One of the two trees, with the actions that are measured.
struct Tree {
    QWidget* Page = nullptr; // shows the rows
    QScrollBar* Down = nullptr;
    std::function<void()> Fill;
    std::function<void(int)> ScrollAcross; // by a file column, forward or backward
    std::function<void(End)> ScrollToEnd;  // of the columns
    std::function<void(bool)> ExpandAll;   // or collapse
};

class Trees
{
public:
    explicit Trees(k_StyleAtlasDialog& dialog) : m_dialog(dialog)
    {
        CRect label;
        Child().GetItemRect(Child().GetNextItem(nullptr, TVGN_ROOT), &label, TRUE);
        m_peer = std::make_unique<bench::PeerTree>(label.Height(), Frame().m_columnWidths[0], FileWidth());
        m_peer->setWindowFlag(Qt::Dialog);
        m_peer->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
        m_peer->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
        m_peer->show();
        m_peer->Fill(m_dialog.m_Atlas);
        Settle();
        m_peer->resize(m_peer->size() + PageOf(Ours()).size() - m_peer->viewport()->size());
        Settle();
    }

    Tree Ours()
    {
        auto& tree = static_cast<QAbstractScrollArea&>(Window::Of(Child().m_hWnd)->Widget());
        return {.Page = tree.viewport(),
                .Down = tree.verticalScrollBar(),
                .Fill = [this] { m_dialog.FillTree(); },
                .ScrollAcross = [this](int step) { Scroll(step > 0 ? SB_LINERIGHT : SB_LINELEFT); },
                .ScrollToEnd = [this](End end) { Scroll(end == End::Left ? SB_LEFT : SB_RIGHT); },
                .ExpandAll = [this](bool expands) { expands ? Child().ExpandAll() : Child().CollapseAll(); }};
    }

    Tree Peer()
    {
        QScrollBar* const across = m_peer->horizontalScrollBar();
        return {
            .Page = m_peer->viewport(),
            .Down = m_peer->verticalScrollBar(),
            .Fill = [this] { m_peer->Fill(m_dialog.m_Atlas); },
            .ScrollAcross = [this,
                             across](int step) { across->setValue(across->value() + step * FileWidth()); },
            .ScrollToEnd = [across](End end) { across->setValue(end == End::Left ? 0 : across->maximum()); },
            .ExpandAll = [this](bool expands) { expands ? m_peer->expandAll() : m_peer->collapseAll(); }};
    }

    // What there is to see of a tree.
    static QRect PageOf(const Tree& tree) { return tree.Page->visibleRegion().boundingRect(); }

    // Scrolls both and throws unless they show the same cells except for rounding.
    void Show(End end)
    {
        QImage pictures[2];
        for (int i = 0; i < 2; ++i) {
            const Tree tree = i == 0 ? Ours() : Peer();
            tree.ScrollToEnd(end);
            Settle();
            const QRect page = PageOf(tree);
            pictures[i] = QImage(page.size(), QImage::Format_RGB32);
            tree.Page->render(&pictures[i], QPoint(), page);
        }
        const QRect cells =
            pictures[0].rect().adjusted(end == End::Left ? Frame().m_columnWidths[0] : 0, 0, 0, 0);
        int different = 0;
        for (int y = cells.top(); y <= cells.bottom(); ++y) {
            for (int x = cells.left(); x <= cells.right(); ++x)
                different += pictures[0].pixel(x, y) != pictures[1].pixel(x, y) ? 1 : 0;
        }
        if (pictures[0].size() != pictures[1].size() ||
            different > cells.width() * cells.height() * maxDifferent)
            throw std::runtime_error("the two trees differ");
    }

private:
    k_ColumnTreeCtrl& Frame() { return m_dialog.m_ColumnTree; }
    k_CustomTreeChildCtrl& Child() { return Frame().m_Tree; }
    int FileWidth() { return Frame().m_columnWidths[1]; }
    void Scroll(UINT code) { Frame().SendMessage(WM_HSCROLL, code); }

    k_StyleAtlasDialog& m_dialog;
    std::unique_ptr<bench::PeerTree> m_peer;
};

template <class Body>
void AddPair(bench::Suite& suite, Trees& trees, const std::string& name, double rows, double goal, Body body)
{
    const auto add = [&](const std::string& full, const Tree& tree) {
        suite.Add(full, rows, [body, tree](benchmark::State& state) {
            int step = 1;
            for ([[maybe_unused]] const auto iteration : state) {
                body(tree, step);
                step = -step;
            }
        });
    };
    add(name, trees.Ours());
    add("QTreeView, " + name, trees.Peer());
    suite.Compare({.Name = name, .Ours = name, .Peer = "QTreeView, " + name, .Goal = goal});
}

void AddScrolling(bench::Suite& suite, Trees& trees, End end)
{
    const std::string place = end == End::Left ? ", left end" : ", right end";
    const int inward = end == End::Left ? 1 : -1;
    AddPair(suite, trees, "repaint of the page" + place, 1, repaintGoal,
            [](const Tree& tree, int) { tree.Page->repaint(); });
    AddPair(suite, trees, "line down or up" + place, 1, lineDownGoal, [](const Tree& tree, int step) {
        tree.Down->setValue(tree.Down->value() + step);
        Settle();
    });
    AddPair(suite, trees, "line sideways" + place, 1, lineSidewaysGoal, [inward](const Tree& tree, int step) {
        tree.ScrollAcross(inward * step);
        Settle();
    });
    AddPair(suite, trees, "thumb drag, a step" + place, 1, dragGoal, [](const Tree& tree, int step) {
        tree.Down->setValue(tree.Down->value() + step * rowsOfDrag);
        Settle();
    });
}

std::string NameOf(const char* work, int rows)
{
    return work + (", " + std::to_string(rows)) + " rows";
}

void AddFilling(bench::Suite& suite, Trees& trees, int rows)
{
    AddPair(suite, trees, NameOf("fill", rows), rows, fillGoal, [](const Tree& tree, int) {
        tree.Fill();
        Settle();
    });
    AddPair(suite, trees, NameOf("collapse and expand all", rows), rows, foldGoal, [](const Tree& tree, int) {
        tree.ExpandAll(false);
        Settle();
        tree.ExpandAll(true);
        Settle();
    });
}

// Runs in the dialog's event loop.
void RunAll(const std::vector<bench::Suite*>& suites, k_StyleAtlasDialog& dialog)
{
    Settle();
    Trees trees(dialog);
    for (const End end : {End::Left, End::Right}) {
        trees.Show(end);
        AddScrolling(*suites[0], trees, end);
        suites[0]->Run();
    }
    trees.Show(End::Left);
    for (const int rows : tableSizes) {
        MakeTable(rows);
        dialog.m_Atlas.Assign(g_StyleAtlas);
        trees.Ours().Fill(); // it still has rows of the previous table
        trees.Peer().Fill();
        AddFilling(*suites[1], trees, rows);
        suites[1]->Run();
    }
    const int smallest = tableSizes[1]; // below that, painting counts for more than the rows
    const int largest = tableSizes[2];
    for (const char* const work : {"fill", "collapse and expand all"})
        suites[1]->Compare({.Name = NameOf(work, largest),
                            .Ours = NameOf(work, largest),
                            .Peer = NameOf(work, smallest),
                            .Goal = growthGoal});
}

int Run(int argc, char** argv)
{
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    const QApplication application(argc, argv);
    bench::Suite painting(argc, argv, {"--benchmark_repetitions=9", "--benchmark_min_time=0.02"});
    bench::Suite filling(argc, argv, {"--benchmark_repetitions=9", "--benchmark_min_time=0.02"});
    MakeTable(tableSizes[0]);
    k_StyleAtlasDialog dialog;
    std::exception_ptr failure;
    QTimer::singleShot(0, [&] {
        try {
            RunAll({&painting, &filling}, dialog);
        } catch (...) { // must not unwind through Qt
            failure = std::current_exception();
        }
        dialog.EndDialog(IDCANCEL);
    });
    dialog.DoModal();
    if (failure)
        std::rethrow_exception(failure);
    painting.PrintTable("The tree as its dialog opens", bench::threadTime + "a step");
    filling.PrintTable("The rows of the tree", bench::threadTime + "a row");
    return EXIT_SUCCESS;
}

} // namespace

int main(int argc, char** argv)
{
    return bench::RunProgram(argc, argv, Run);
}
