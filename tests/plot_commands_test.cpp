// What the menus do with the picture of a plot: export, copy and print it.
#include "PictureFile.h"
#include "PlotView.h"
#include "PlotWindow.h"

#include "support/Plots.h"
#include "support/TempPrefix.h"

#include <QtWidgets>

#include <csignal>
#include <filesystem>
#include <stdexcept>

#include <sys/resource.h>
#include <sys/stat.h>

namespace atlashost
{
namespace
{

TEST_F(Plots, AreWrittenInWholeOrNotAtAll)
{
    const test::TempPrefix prefix;
    const std::string path = prefix.Path() / "p.svg";
    test::WriteWhole(path, "old");
    const auto write = [&](PictureFormat format) {
        WritePicture(path.c_str(), format, {{192, 384}, 192}, [](QPainter& painter, QSize size) {
            EXPECT_EQ(size, QSize(96, 192));
            painter.fillRect(QRect{{}, size}, Qt::red);
        });
        return test::ReadWhole(path);
    };
    EXPECT_NE(write(PictureFormat::Svg).find("viewBox=\"0 0 96 192\""), std::string::npos);
    EXPECT_NE(write(PictureFormat::Pdf).find("/MediaBox [0 0 72."), std::string::npos) << "in points";
    write(PictureFormat::Png);
    const QImage written{QString::fromStdString(path)};
    EXPECT_EQ(written.size(), QSize(192, 384));
    EXPECT_EQ(written.pixelColor(191, 383), Qt::red);
    EXPECT_NEAR(written.dotsPerMeterX(), 192 / 0.0254, 1);
    const std::string before = test::ReadWhole(path);
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    const rlimit small{16, limit.rlim_max};
    signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &small);
    EXPECT_THROW(write(PictureFormat::Svg), std::runtime_error);
    setrlimit(RLIMIT_FSIZE, &limit);
    EXPECT_EQ(test::ReadWhole(path), before);
    EXPECT_EQ(
        std::distance(std::filesystem::directory_iterator{std::filesystem::path{path}.parent_path()}, {}), 1)
        << "nothing else is left";
}

QAction& Find(const QWidget& window, const char* text)
{
    const QList<QAction*> actions = window.findChildren<QAction*>();
    const auto found = std::ranges::find(actions, QString{text}, &QAction::text);
    if (found == actions.end())
        throw std::runtime_error{text};
    return **found;
}

class PlotMenu : public Plots
{
protected:
    PlotMenu()
    {
        // The last folder.
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder);
        plot.panels[0].curves = {CurveOf(7)};
        window.show();
    }

    const test::TempPrefix prefix;
    const QString folder = QString::fromStdString(prefix.Path());
    Plot plot{{Numbers}, 0};
    PlotWindow window{plot};
    PlotView& view = dynamic_cast<PlotView&>(*window.centralWidget());
};

TEST_F(PlotMenu, NeedsACurve)
{
    const Plot none;
    const PlotWindow empty{none};
    for (const char* const command : {"&Export picture...", "&Copy picture", "&Print..."}) {
        Find(empty, command).trigger();
        EXPECT_EQ(empty.statusBar()->currentMessage(), "There is no curve to plot.");
    }
}

TEST_F(PlotMenu, ExportsAndCopiesThePicture)
{
    const auto status = [this] { return window.statusBar()->currentMessage(); };
    const auto exportTo = [&](const QString& path) {
        QTimer::singleShot(0, [&] {
            auto& dialog = dynamic_cast<QDialog&>(*QApplication::activeModalWidget());
            dialog.findChild<QLineEdit*>()->setText(path);
            dialog.accept();
        });
        Find(window, "&Export picture...").trigger();
    };
    const QString saved = QString::fromStdString(prefix.Path() / "saved.png");
    const mode_t mask = umask(027);
    exportTo(saved);
    EXPECT_EQ(umask(mask), 027U);
    EXPECT_EQ(status(), "The picture is in " + saved);
    EXPECT_EQ(QImage{saved}.convertToFormat(QImage::Format_RGB32),
              view.grab().toImage().convertToFormat(QImage::Format_RGB32));
    const QString dangling = QString::fromStdString(prefix.Path() / "dangling.png");
    QFile::link("/nowhere/picture", dangling);
    exportTo(dangling);
    EXPECT_EQ(status(), dangling + " cannot be written: No such file or directory");
    const std::unique_ptr<QMessageBox> warning{window.findChild<QMessageBox*>()};
    EXPECT_TRUE(warning && warning->text() == status());
    QFile::remove(dangling);
    QFile::link("linked.png", dangling);
    exportTo(dangling);
    EXPECT_EQ(QImage{QFileInfo{saved}.path() + "/linked.png"}.size(), view.size());
    Find(window, "&Copy picture").trigger();
    EXPECT_EQ(status(), "The picture is on the clipboard.");
    EXPECT_EQ(QGuiApplication::clipboard()->image().convertToFormat(QImage::Format_RGB32),
              QImage{saved}.convertToFormat(QImage::Format_RGB32));
}

TEST_F(PlotMenu, AsksForFileAndSize)
{
    const auto button = [](const QDialog& dialog, const char* text) {
        const QList<QPushButton*> buttons = dialog.findChildren<QPushButton*>();
        return *std::ranges::find(buttons, QString{text}, &QPushButton::text);
    };
    QTimer::singleShot(0, [&] {
        auto& dialog = dynamic_cast<QDialog&>(*QApplication::activeModalWidget());
        const QList<QDoubleSpinBox*> sides = dialog.findChildren<QDoubleSpinBox*>();
        auto& unit = *dialog.findChild<QComboBox*>();
        auto& resolution = *dialog.findChild<QSpinBox*>();
        const double pixels = sides[0]->value();
        EXPECT_GE(dialog.findChild<QLineEdit*>()->width(), 320);
        EXPECT_LT(unit.geometry().right(), dialog.findChild<QLineEdit*>()->geometry().right());
        EXPECT_TRUE(button(dialog, "&Export")->isEnabled());
        EXPECT_TRUE(button(dialog, "&Export")->isDefault());
        dialog.findChild<QLineEdit*>()->setText("plot.bmp");
        EXPECT_FALSE(button(dialog, "&Export")->isEnabled());
        EXPECT_TRUE(sides[1]->isVisible() && resolution.isVisible() && sides[0]->decimals() == 0);
        unit.setCurrentText("mm");
        EXPECT_NEAR(sides[0]->value(), pixels * 25.4 / resolution.value(), 0.06);
        resolution.setValue(2 * resolution.value());
        unit.setCurrentIndex(0);
        EXPECT_NEAR(sides[0]->value(), 2 * pixels, 1);
        EXPECT_EQ(resolution.minimum(), 36);
        EXPECT_EQ(dialog.windowTitle() + resolution.suffix(), "Export picture dpi");
        QTimer::singleShot(0, [&] {
            auto& browser = dynamic_cast<QFileDialog&>(*QApplication::activeModalWidget());
            EXPECT_TRUE(browser.acceptMode() == QFileDialog::AcceptSave && browser.defaultSuffix() == "png");
            browser.selectFile(folder + "/browsed");
            static_cast<QDialog&>(browser).accept();
        });
        button(dialog, "&Browse...")->click();
        EXPECT_EQ(dialog.findChild<QLineEdit*>()->text(), folder + "/browsed.png");
        test::WriteWhole((prefix.Path() / "old.png").string(), "old");
        dialog.findChild<QLineEdit*>()->setText(folder + "/old.png");
        bool isAsked = false;
        QTimer::singleShot(0, [&isAsked] {
            dynamic_cast<QMessageBox&>(*QApplication::activeModalWidget()).button(QMessageBox::No)->click();
            isAsked = true;
        });
        button(dialog, "&Export")->click();
        EXPECT_TRUE(isAsked && dialog.isVisible()) << "an old file, and No";
        dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Cancel)->click();
        EXPECT_FALSE(dialog.isVisible());
        dialog.reject();
    });
    Find(window, "&Export picture...").trigger();
}

TEST_F(PlotMenu, PrintsThePicture)
{
    const auto status = [this] { return window.statusBar()->currentMessage(); };
    const std::string pdf = prefix.Path() / "printed.pdf";
    QTimer::singleShot(0, [&pdf] {
        auto& dialog = dynamic_cast<QDialog&>(*QApplication::activeModalWidget());
        dialog.findChild<QLineEdit*>("filename")->setText(pdf.c_str());
        dialog.accept();
    });
    Find(window, "&Print...").trigger();
    EXPECT_EQ(status(), "The picture is being printed.");
    const QString printed = QString::fromLatin1(QByteArray::fromStdString(test::ReadWhole(pdf)));
    const auto box = QRegularExpression{"/MediaBox \\[0 0 ([0-9.]+) ([0-9.]+)"}.match(printed);
    EXPECT_GT(box.captured(1).toDouble(), box.captured(2).toDouble()) << "landscape";
    EXPECT_GT(printed.size(), 15000) << "curves and texts";
}

TEST_F(PlotMenu, ComesByTheKeyboard)
{
    const QPoint from = view.rect().center();
    bool hasMenu = false;
    QTimer::singleShot(0, [&hasMenu] {
        auto& menu = dynamic_cast<QMenu&>(*QApplication::activePopupWidget());
        hasMenu = menu.actions().size() > 5;
        menu.close();
    });
    QContextMenuEvent wish{QContextMenuEvent::Keyboard, from, view.mapToGlobal(from)};
    QCoreApplication::sendEvent(&view, &wish);
    EXPECT_TRUE(hasMenu);
}

} // namespace
} // namespace atlashost
