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

constexpr double paintGoal = 0.5;
constexpr double noGoal = 0;
constexpr double fillGoal = 1;
constexpr double growthGoal = 1.25; // allows for the cache misses of a larger table
constexpr int pageRows = 20;
constexpr WORD tableSizes[] = {300, 5000};
constexpr WORD rowsOfGroup = 10;
constexpr double maxDifferent = 0.1; // of the pixels of the cells

// Groups of ten rows, styled by the bulk rules.
void MakeTable(WORD rows)
{
    g_StyleAtlas.Clear();
    g_StyleAtlas.ColumnCount = k_MaxFileColumns;
    for (WORD row = 0; row < rows; ++row) {
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

// One of the two trees, with the actions that are measured.
struct Tree {
    QWidget* Page = nullptr; // shows the rows
    std::function<void()> Fill;
    std::function<void(int)> ScrollAcross; // by a file column, forward or backward
    std::function<void(int)> ScrollDown;   // by a row
};

class Trees
{
public:
    explicit Trees(k_StyleAtlasDialog& dialog) : m_dialog(dialog)
    {
        CRect label;
        Child().GetItemRect(Child().GetNextItem(nullptr, TVGN_ROOT), &label, TRUE);
        m_rowHeight = label.Height();
        m_peer = std::make_unique<bench::PeerTree>(m_rowHeight, Frame().m_columnWidths[0], FileWidth());
        m_peer->setWindowFlag(Qt::Dialog);
        m_peer->show();
        m_peer->Fill(m_dialog.m_Atlas);
    }

    Tree Ours()
    {
        return {
            .Page = &Window::Of(Child().m_hWnd)->Client(),
            .Fill = [this] { m_dialog.FillTree(); },
            .ScrollAcross =
                [this](int step) { Frame().SendMessage(WM_HSCROLL, step > 0 ? SB_LINERIGHT : SB_LINELEFT); },
            .ScrollDown =
                [this](int step) {
                    auto& tree = static_cast<QAbstractScrollArea&>(Window::Of(Child().m_hWnd)->Widget());
                    QScrollBar& bar = *tree.verticalScrollBar();
                    bar.setValue(bar.value() + step);
                }};
    }

    Tree Peer()
    {
        return {.Page = m_peer->viewport(),
                .Fill = [this] { m_peer->Fill(m_dialog.m_Atlas); },
                .ScrollAcross =
                    [this](int step) {
                        QScrollBar& bar = *m_peer->horizontalScrollBar();
                        bar.setValue(bar.value() + step * FileWidth());
                    },
                .ScrollDown =
                    [this](int step) {
                        QScrollBar& bar = *m_peer->verticalScrollBar();
                        bar.setValue(bar.value() + step);
                    }};
    }

    // Resizes both trees so that their pages show the same number of rows and file columns.
    void Resize(int columns)
    {
        const QSize page(Frame().m_columnWidths[0] + columns * FileWidth(), pageRows * m_rowHeight);
        const bool hasBar = columns < k_MaxFileColumns;
        const QSize bars(::GetSystemMetrics(SM_CXVSCROLL), hasBar ? ::GetSystemMetrics(SM_CYHSCROLL) : 0);
        const QSize all = page + bars + QSize(0, Frame().m_headerHeight);
        QApplication::activeModalWidget()->setFixedSize(all);
        Frame().MoveWindow(0, 0, all.width(), all.height());
        m_peer->setHorizontalScrollBarPolicy(hasBar ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
        Settle();
        m_peer->resize(m_peer->size() + page - m_peer->viewport()->size());
        Settle();
    }

    // Throws unless both show the same cells except for rounding.
    void RequireAlike()
    {
        const QImage ours = PictureOf(*Ours().Page);
        const QImage peer = PictureOf(*Peer().Page);
        const QRect cells = ours.rect().intersected(peer.rect()).adjusted(Frame().m_columnWidths[0], 0, 0, 0);
        int different = 0;
        for (int y = cells.top(); y <= cells.bottom(); ++y) {
            for (int x = cells.left(); x <= cells.right(); ++x)
                different += ours.pixel(x, y) != peer.pixel(x, y) ? 1 : 0;
        }
        if (ours.size() != peer.size() || different > cells.width() * cells.height() * maxDifferent)
            throw std::runtime_error("the two trees differ");
    }

    static QImage PictureOf(QWidget& page)
    {
        QImage image(page.size(), QImage::Format_RGB32);
        page.render(&image);
        return image;
    }

private:
    k_ColumnTreeCtrl& Frame() { return m_dialog.m_ColumnTree; }
    k_CustomTreeChildCtrl& Child() { return Frame().m_Tree; }
    int FileWidth() { return Frame().m_columnWidths[1]; }

    k_StyleAtlasDialog& m_dialog;
    int m_rowHeight = 0;
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

void AddPage(bench::Suite& suite, Trees& trees)
{
    AddPair(suite, trees, "repaint of a page", 1, paintGoal,
            [](const Tree& tree, int) { tree.Page->repaint(); });
    const auto image = std::make_shared<QImage>(Trees::PictureOf(*trees.Ours().Page));
    AddPair(suite, trees, "page into an image", 1, paintGoal,
            [image](const Tree& tree, int) { tree.Page->render(image.get()); });
}

// No goal: the peer moves the pixels that remain visible, ours paints the whole page.
void AddScrolling(bench::Suite& suite, Trees& trees)
{
    AddPair(suite, trees, "a column to the side", 1, noGoal, [](const Tree& tree, int step) {
        tree.ScrollAcross(step);
        Settle();
    });
    AddPair(suite, trees, "a row down or up", 1, noGoal, [](const Tree& tree, int step) {
        tree.ScrollDown(step);
        Settle();
    });
}

std::string NameOfFill(WORD rows)
{
    return "fill, " + std::to_string(rows) + " rows";
}

// Runs in the dialog's event loop.
void RunAll(const std::vector<bench::Suite*>& suites, k_StyleAtlasDialog& dialog)
{
    Trees trees(dialog);
    trees.Resize(k_MaxFileColumns);
    trees.RequireAlike();
    AddPage(*suites[0], trees);
    suites[0]->Run();
    trees.Resize(k_MaxFileColumns / 2);
    AddScrolling(*suites[0], trees);
    suites[0]->Run();
    trees.Resize(k_MaxFileColumns);
    for (const WORD rows : tableSizes) {
        MakeTable(rows);
        dialog.m_Atlas.Assign(g_StyleAtlas);
        AddPair(*suites[1], trees, NameOfFill(rows), rows, fillGoal, [](const Tree& tree, int) {
            tree.Fill();
            Settle();
        });
        suites[1]->Run();
    }
    const std::string small = NameOfFill(tableSizes[0]);
    const std::string large = NameOfFill(tableSizes[1]);
    suites[1]->Compare({.Name = large, .Ours = large, .Peer = small, .Goal = growthGoal});
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
    painting.PrintTable("Painting the tree, 20 rows and 32 or 16 file columns", bench::threadTime + "a page");
    filling.PrintTable("Filling the tree", bench::threadTime + "a row");
    return EXIT_SUCCESS;
}

} // namespace

int main(int argc, char** argv)
{
    return bench::RunProgram(argc, argv, Run);
}
