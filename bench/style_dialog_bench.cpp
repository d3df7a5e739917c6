// The dialog of one style, from the call to its first complete picture, against a plain Qt dialog with the
// same controls and items.
#include "Suite.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <cstdlib>
#include <dialogs/CurveLayoutDlg.h>
#include <functional>
#include <model/StyleNames.h>

namespace
{

constexpr double goal = 2;
constexpr int numberItems = 10; // of the boxes for size and width

// Closes the next dialog that has painted itself and its controls.
class OnFirstPicture : public QObject
{
public:
    explicit OnFirstPicture(benchmark::State& state) : m_state(state) { qApp->installEventFilter(this); }

    bool eventFilter(QObject* receiver, QEvent* event) override
    {
        auto* const dialog = qobject_cast<QDialog*>(receiver);
        if (event->type() == QEvent::Paint && dialog != nullptr && !m_isSeen) {
            m_isSeen = true;
            QTimer::singleShot(0, dialog, [this, dialog] {
                m_state.PauseTiming();
                dialog->reject();
            });
        }
        return false;
    }

private:
    benchmark::State& m_state;
    bool m_isSeen = false;
};

void AddOpening(bench::Suite& suite, const std::string& name, const std::function<void()>& open)
{
    suite.Add(name, 1, [open](benchmark::State& state) {
        for ([[maybe_unused]] const auto iteration : state) {
            const OnFirstPicture watcher(state);
            open();
            state.ResumeTiming();
        }
    });
}

// ---- The peer

class PeerDialog : public QDialog
{
public:
    PeerDialog()
    {
        setWindowTitle("Layout");
        resize(476, 322);
        for (const auto& [text, y, height] : {std::tuple{"Symbol", 10, 143}, {"Line", 166, 130}})
            (new QGroupBox(text, this))->setGeometry(2, y, 340, height);
        for (const auto& [text, y] :
             {std::pair{"Shape", 39}, {"Style", 72}, {"Size", 114}, {"Style", 197}, {"Width", 234}})
            (new QLabel(text, this))->setGeometry(9, y, 42, 13);
        for (const auto& [y, items, isEditable] : {std::tuple{34, k_SymbolShapeCount, false},
                                                   {70, k_SymbolFillCount, false},
                                                   {110, numberItems, true},
                                                   {192, k_LineStyleCount, false},
                                                   {231, numberItems, true}}) {
            auto* const box = new QComboBox(this);
            box->setEditable(isEditable);
            box->setGeometry(57, y, 104, 23);
            for (int i = 1; i <= items; ++i)
                box->addItem(QString::number(i));
        }
        for (const auto& [text, x, y] :
             {std::tuple{"Color", 182, 33}, {"Color", 182, 192}, {"OK", 377, 11}, {"Cancel", 377, 39}})
            (new QPushButton(text, this))->setGeometry(x, y, 75, 23);
        (new QCheckBox("Use symbol color", this))->setGeometry(179, 232, 155, 17);
    }
};

int Run(int argc, char** argv)
{
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    const QApplication application(argc, argv);
    bench::Suite suite(argc, argv, {"--benchmark_repetitions=25", "--benchmark_min_time=0.02"});
    k_LineDef style;
    k_LineDefList list;
    list.Add(&style);
    AddOpening(suite, "first picture", [&list] { EditStyles(nullptr, &list, nullptr); });
    AddOpening(suite, "QDialog, first picture", [] { PeerDialog().exec(); });
    suite.Run();
    suite.Compare(
        {.Name = "first picture", .Ours = "first picture", .Peer = "QDialog, first picture", .Goal = goal});
    suite.PrintTable("The dialog of one style", bench::threadTime + "a time");
    return EXIT_SUCCESS;
}

} // namespace

int main(int argc, char** argv)
{
    return bench::RunProgram(argc, argv, Run);
}
