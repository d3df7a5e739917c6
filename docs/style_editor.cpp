// Writes two pictures of the curve style dialog: on the style of one curve, and on the styles of a row, which
// differ.
//   style_editor ONE.png MANY.png
#include <frame/ModuleObjects.h>

#include <QApplication>
#include <QPainter>
#include <QTimer>
#include <QWidget>
#include <controls/StyleEditing.h>
#include <cstdio>
#include <cstdlib>
#include <model/StyleAtlasLookup.h>

namespace
{

constexpr QuantityKey shownQuantity{20, 1, 0, 5, 0}; // the air of the thermal chamber
constexpr int shownColumn = 2;
constexpr int fileColumns = 5;
constexpr int frameWidth = 4;
constexpr int captionHeight = 26;
const QColor frameColor(0x5A, 0x64, 0x70);

// The dialog in a plain frame, which no window manager gives it here.
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

// Opens the dialog on a list, writes its picture and cancels it.
bool Show(k_LineDefList& styles, k_QuantityDesc* quantity, const char* path)
{
    bool isWritten = false;
    QTimer opened;
    opened.setSingleShot(true);
    QObject::connect(&opened, &QTimer::timeout, [&] {
        QWidget* const dialog = QApplication::activeModalWidget();
        if (dialog == nullptr)
            return;
        isWritten = PictureOf(*dialog).save(QString::fromLocal8Bit(path), "PNG");
        dialog->close();
    });
    opened.start();
    EditStyles(nullptr, &styles, quantity);
    styles.SetSize(0, -1); // the records are the atlas's
    if (!isWritten)
        std::fprintf(stderr, "%s: cannot be written\n", path);
    return isWritten;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::fprintf(stderr, "Usage: %s ONE.png MANY.png\n", argv[0]);
        return EXIT_FAILURE;
    }
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    const QApplication application(argc, argv);
    g_App.BindUnitLibrary();
    g_StyleAtlas.BuildCatalogue();
    g_StyleAtlas.SetMainQuantitySymbols();
    g_StyleAtlas.SetFileColors(0, fileColumns);

    const INT_PTR row = g_StyleAtlas.FindRow(shownQuantity);
    k_QuantityDesc* const quantity = g_StyleAtlas.GetRow(row);
    if (quantity == nullptr) {
        std::fprintf(stderr, "The unit library has no quantities\n");
        return EXIT_FAILURE;
    }
    quantity->GetColumnStyle(1)->LineStyle = PS_DASH;
    k_LineDefList one;
    one.Add(quantity->GetColumnStyle(shownColumn));
    k_LineDefList many;
    for (int column = 0; column < fileColumns; ++column)
        many.Add(quantity->GetColumnStyle(column));
    const bool isDone = Show(one, quantity, argv[1]) && Show(many, quantity, argv[2]);
    return isDone ? EXIT_SUCCESS : EXIT_FAILURE;
}
