// The editor of the whole style atlas as its user waits for it: from EditStyleAtlas to the first picture,
// from OK until the file is written, and the reload of the table; against a Qt dialog
// with a view of a table of rows.
#include "PeerTable.h"
#include "StylePeer.h"
#include "Suite.h"
#include "TempFolder.h"

#include <QAbstractTableModel>
#include <QApplication>
#include <QDataStream>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFile>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QSaveFile>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QTimer>
#include <array>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <include/styleatlas.h>
#include <model/StyleNames.h>
#include <stdexcept>

namespace
{

constexpr int tableSizes[] = {300, 3000, 30000}; // rows
constexpr double goal = 1;
constexpr int rowsOfGroup = 10;
constexpr QSize dialogSize(889, 564);
constexpr int treeColumnWidth = 150;
constexpr int fileColumnWidth = 60;
constexpr int rowHeight = 18;

// Groups of ten rows for the unit library.
void WriteCatalogue(const std::filesystem::path& path, int rows)
{
    std::ofstream file(path);
    for (int row = 0; row < rows; ++row) {
        const int quantity = row / rowsOfGroup + 1;
        const int index = row % rowsOfGroup;
        if (index == 0)
            file << "* ; " << quantity << " ; * ; * ; * ; Q_" << quantity << " ; Quantity " << quantity
                 << '\n';
        else
            file << "0 ; " << quantity << " ; 0 ; " << index << " ; 0x0 ; Q_" << quantity << '_' << index
                 << " ; Quantity " << quantity << ", " << index << '\n';
    }
}

// Runs an action once the next dialog that opens has painted itself completely.
class OnFirstPicture : public QObject
{
public:
    explicit OnFirstPicture(std::function<void(QDialog&)> action) : m_action(std::move(action))
    {
        qApp->installEventFilter(this);
    }

    bool eventFilter(QObject* receiver, QEvent* event) override
    {
        const bool isPage =
            receiver->parent() != nullptr && receiver->parent()->inherits("QAbstractScrollArea");
        if (event->type() == QEvent::Paint && isPage && !m_isSeen) {
            m_isSeen = true;
            const auto act = [this] { m_action(*qobject_cast<QDialog*>(QApplication::activeModalWidget())); };
            QTimer::singleShot(0, act);
        }
        return false;
    }

private:
    std::function<void(QDialog&)> m_action;
    bool m_isSeen = false;
};

void PressOk(QDialog& dialog)
{
    for (QPushButton* const button : dialog.findChildren<QPushButton*>()) {
        if (button->text() == "OK" || button->text() == "&OK")
            return button->click();
    }
    throw std::runtime_error("a dialog without OK");
}

// ---- The peer

struct PeerRow {
    QString Label;
    std::array<bench::PlainStyle, bench::plainColumns> Styles;
};
using PeerTable = std::vector<PeerRow>;

PeerTable MakePeerTable(int rows)
{
    PeerTable table(static_cast<std::size_t>(rows));
    for (int row = 0; row < rows; ++row) {
        PeerRow& made = table[static_cast<std::size_t>(row)];
        made.Label = QString("Q_%1_%2").arg(row / rowsOfGroup + 1).arg(row % rowsOfGroup);
        std::uint32_t color = 0;
        for (bench::PlainStyle& style : made.Styles) {
            style.SymbolShape = static_cast<std::int16_t>(row % k_SymbolShapeCount);
            style.SymbolColor = style.LineColor = color += 0x050301;
        }
    }
    return table;
}

template <class Stream, class Style> void Exchange(Stream& stream, Style& style)
{
    const auto pass = [&stream](auto& field) {
        if constexpr (std::is_const_v<Style>)
            stream << field;
        else
            stream >> field;
    };
    pass(style.SymbolShape);
    pass(style.SymbolSize);
    pass(style.SymbolFill);
    pass(style.LineStyle);
    pass(style.LineWidth);
    pass(style.SymbolColor);
    pass(style.LineColor);
    pass(style.UseSymbolColor);
}

void SavePeer(const PeerTable& table, const QString& path)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        throw std::runtime_error("cannot write the peer's file");
    QDataStream stream(&file);
    stream << static_cast<quint32>(table.size());
    for (const PeerRow& row : table) {
        stream << row.Label;
        for (const bench::PlainStyle& style : row.Styles)
            Exchange(stream, style);
    }
    if (!file.commit())
        throw std::runtime_error("cannot write the peer's file");
}

PeerTable LoadPeer(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error("cannot read the peer's file");
    QDataStream stream(&file);
    quint32 rows = 0;
    stream >> rows;
    PeerTable table(rows);
    for (PeerRow& row : table) {
        stream >> row.Label;
        for (bench::PlainStyle& style : row.Styles)
            Exchange(stream, style);
    }
    return table;
}

// Column 0 has the labels, the others the styles.
class PeerModel : public QAbstractTableModel
{
public:
    explicit PeerModel(PeerTable& table) : m_table(table) {}

    int rowCount(const QModelIndex& /*parent*/) const override { return static_cast<int>(m_table.size()); }
    int columnCount(const QModelIndex& /*parent*/) const override { return 1 + bench::plainColumns; }
    QVariant data(const QModelIndex& index, int role) const override
    {
        return role == Qt::DisplayRole && index.column() == 0 ? QVariant(RowAt(index).Label) : QVariant();
    }
    const bench::PlainStyle& StyleAt(const QModelIndex& index) const
    {
        return RowAt(index).Styles.at(static_cast<std::size_t>(index.column() - 1));
    }

private:
    const PeerRow& RowAt(const QModelIndex& index) const
    {
        return m_table[static_cast<std::size_t>(index.row())];
    }

    PeerTable& m_table;
};

class StyleDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::paint(painter, option, index);
        if (index.column() == 0)
            return;
        const bench::PlainStyle& plain = static_cast<const PeerModel*>(index.model())->StyleAt(index);
        k_LineDef style;
        style.SymbolShape = plain.SymbolShape;
        style.SymbolColor = plain.SymbolColor;
        style.LineColor = plain.LineColor;
        bench::PaintStyleByPainter(*painter, style, option.rect.adjusted(4, 1, -4, -1));
    }
};

// A lean dialog with Qt: a view of the table itself, whose cells a delegate paints. OK saves a copy of the
// table that was edited, as ours does.
class PeerDialog : public QDialog
{
public:
    PeerDialog(PeerTable& table, QString path) : m_table(table), m_path(std::move(path))
    {
        m_view->setModel(&m_model);
        m_view->setItemDelegate(new StyleDelegate(m_view));
        m_view->verticalHeader()->hide();
        m_view->verticalHeader()->setDefaultSectionSize(rowHeight);
        m_view->horizontalHeader()->setDefaultSectionSize(fileColumnWidth);
        m_view->setColumnWidth(0, treeColumnWidth);
        auto* const buttons =
            new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, Qt::Vertical);
        connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
        connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
        auto* const layout = new QHBoxLayout(this);
        layout->addWidget(m_view);
        layout->addWidget(buttons);
        resize(dialogSize);
    }

    void accept() override
    {
        m_table = m_edited;
        SavePeer(m_table, m_path);
        QDialog::accept();
    }

private:
    PeerTable& m_table;
    PeerTable m_edited = m_table;
    PeerModel m_model{m_edited};
    QString m_path;
    QTableView* m_view = new QTableView;
};

// ---- The measurements

void AddOpening(bench::Suite& suite, const std::string& name, const std::function<void()>& edit)
{
    suite.Add(name, 1, [edit](benchmark::State& state) {
        for ([[maybe_unused]] const auto iteration : state) {
            const OnFirstPicture watcher([&](QDialog& dialog) {
                state.PauseTiming();
                dialog.reject();
            });
            edit();
            state.ResumeTiming();
        }
    });
}

void AddOk(bench::Suite& suite, const std::string& name, const std::function<void()>& edit)
{
    suite.Add(name, 1, [edit](benchmark::State& state) {
        for ([[maybe_unused]] const auto iteration : state) {
            state.PauseTiming();
            const OnFirstPicture watcher([&](QDialog& dialog) {
                state.ResumeTiming();
                PressOk(dialog);
            });
            edit();
        }
    });
}

void AddReload(bench::Suite& suite, const std::string& name, const std::function<void()>& reload)
{
    suite.Add(name, 1, [reload](benchmark::State& state) {
        for ([[maybe_unused]] const auto iteration : state)
            reload();
    });
}

void MeasureSize(bench::Suite& suite, const bench::TempFolder& folder, int rows)
{
    const std::filesystem::path stem = folder.Path() / std::to_string(rows);
    std::filesystem::create_directories(stem / "drive_c/ProgramData/Halvorn/AirLab");
    setenv("STYLEATLAS_PREFIX", stem.c_str(), 1);
    setenv("MENSURA_CATALOGUE", (stem / "rows.catalogue").c_str(), 1);
    WriteCatalogue(stem / "rows.catalogue", rows);
    StyleAtlasSetApplication(u"AirLab");

    PeerTable table = MakePeerTable(rows);
    const QString path = QString::fromStdString(stem / "peer");
    const std::function<void()> edit = [] { EditStyleAtlas(0); };
    const std::function<void()> editPeer = [&] { PeerDialog(table, path).exec(); };
    const std::string size = std::to_string(rows) + " rows, ";
    AddOk(suite, size + "OK", edit); // in this order: the first one writes the file
    AddOk(suite, "QTableView, " + size + "OK", editPeer);
    AddOpening(suite, size + "first picture", edit);
    AddOpening(suite, "QTableView, " + size + "first picture", editPeer);
    SavePeer(table, path);
    {
        const OnFirstPicture watcher(PressOk);
        EditStyleAtlas(0);
    }
    AddReload(suite, size + "reload", ReloadStyleAtlas);
    AddReload(suite, "QDataStream, " + size + "reload", [&] { table = LoadPeer(path); });
    suite.Run();
    for (const char* const what : {"first picture", "OK"})
        suite.Compare({.Name = size + what,
                       .Ours = size + what,
                       .Peer = "QTableView, " + size + what,
                       .Goal = goal,
                       .WaitsForDisk = std::string_view(what) == "OK"});
    suite.Compare({.Name = size + "reload",
                   .Ours = size + "reload",
                   .Peer = "QDataStream, " + size + "reload",
                   .Goal = goal});
}

int Run(int argc, char** argv)
{
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    const QApplication application(argc, argv);
    const bench::TempFolder folder;
    bench::Suite suite(argc, argv, {"--benchmark_repetitions=9", "--benchmark_min_time=0.02"});
    for (const int rows : tableSizes)
        MeasureSize(suite, folder, rows);
    suite.PrintTable("The editor, its file " + std::string(folder.Place()), bench::threadTime + "a time");
    return EXIT_SUCCESS;
}

} // namespace

int main(int argc, char** argv)
{
    return bench::RunProgram(argc, argv, Run);
}
