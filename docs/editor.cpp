// Writes pictures of the editor: the dialog of the whole style atlas, and the curve style dialog on one style
// and on the different styles of a row.
//   editor ATLAS.png ONE.png MANY.png
#include <frame/StyleAtlasApp.h>

#include <QApplication>
#include <QPainter>
#include <QTimer>
#include <QWidget>
#include <controls/StyleSelection.h>
#include <cstdio>
#include <cstdlib>
#include <dialogs/CurveLayoutDlg.h>
#include <dialogs/StyleAtlasDialog.h>
#include <functional>

namespace
{

constexpr QuantityKey shownQuantity{20, 1, 0, 5, 0}; // the air of the thermal chamber
constexpr const TCHAR* layoutFile = _T("C:\\ProgramData\\Halvorn\\AirLab\\Style.Atlas");
constexpr int shownColumn = 2;
constexpr int frameWidth = 4;
constexpr int captionHeight = 26;
const QColor frameColor(0x5A, 0x64, 0x70);

// The dialog in a plain frame: the offscreen platform has no window manager.
QImage PictureOf(QWidget& dialog)
{
    const QPixmap inside = dialog.grab();
    QImage picture(inside.width() + 2 * frameWidth, inside.height() + captionHeight + frameWidth,
                   QImage::Format_RGB32);
    picture.fill(frameColor);
    QPainter painter(&picture);
    painter.drawPixmap(frameWidth, captionHeight, inside);
    painter.setFont(QApplication::font());
    painter.setPen(Qt::white);
    painter.drawText(QRect(2 * frameWidth, 0, inside.width(), captionHeight), Qt::AlignVCenter,
                     dialog.windowTitle());
    return picture;
}

// Runs a dialog, writes its picture once it is open, and cancels it.
bool Show(
    const char* path, const std::function<void()>& run, const std::function<void()>& prepare = [] {})
{
    bool isWritten = false;
    QTimer opened;
    opened.setSingleShot(true);
    QObject::connect(&opened, &QTimer::timeout, [&] {
        QWidget* const dialog = QApplication::activeModalWidget();
        if (dialog == nullptr)
            return;
        prepare();
        isWritten = PictureOf(*dialog).save(QString::fromLocal8Bit(path), "PNG");
        dialog->close();
    });
    opened.start();
    run();
    if (!isWritten)
        std::fprintf(stderr, "%s: cannot be written\n", path);
    return isWritten;
}

bool ShowAtlas(const char* path)
{
    k_StyleAtlasDialog dialog;
    return Show(
        path, [&dialog] { dialog.DoModal(); },
        [&dialog] {
            k_ColumnTreeCtrl& tree = dialog.m_ColumnTree;
            tree.m_cellColumn = shownColumn + 1;
            tree.m_cellItem = tree.m_Tree.GetNextItem(nullptr, TVGN_ROOT);
            tree.m_cellItem = tree.m_Tree.GetNextItem(tree.m_cellItem, TVGN_NEXTVISIBLE);
        });
}

bool ShowStyles(const char* path, std::initializer_list<int> columns, k_QuantityDesc* quantity)
{
    k_StyleSelection styles;
    for (const int column : columns)
        styles.Add(quantity->GetColumnStyle(column));
    return Show(path, [&] { EditStyles(nullptr, &styles, quantity); });
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 4) {
        std::fprintf(stderr, "Usage: %s ATLAS.png ONE.png MANY.png\n", argv[0]);
        return EXIT_FAILURE;
    }
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    const QApplication application(argc, argv);
    g_App.BindUnitLibrary();
    g_StyleAtlas.BuildCatalogue();
    g_StyleAtlas.ApplyDefaultStyles();
    g_StyleAtlas.FilePath = layoutFile;

    const INT_PTR row = g_StyleAtlas.FindRow(shownQuantity);
    k_QuantityDesc* const quantity = g_StyleAtlas.GetRow(row);
    if (quantity == nullptr) {
        std::fprintf(stderr, "The unit library has no quantities\n");
        return EXIT_FAILURE;
    }
    quantity->GetColumnStyle(1)->LineStyle = PS_DASH;
    const bool isDone = ShowAtlas(argv[1]) && ShowStyles(argv[2], {shownColumn}, quantity) &&
                        ShowStyles(argv[3], {0, 1, 2, 3, 4}, quantity);
    return isDone ? EXIT_SUCCESS : EXIT_FAILURE;
}
