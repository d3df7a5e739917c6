// The window of the sample host: what its menus do, with calls of the test's own in the library's place.
#include "MainWindow.h"

#include "support/TempPrefix.h"

#include <QtWidgets>
#include <gtest/gtest.h>

namespace
{

using namespace atlashost;

int answer = -1;
QString calls;
QAction* reload = nullptr;

const LibraryCalls ownCalls{
    [](std::uintptr_t parent) {
        const bool isGuarded =
            !reload->isEnabled() && !QApplication::topLevelWidgets().front()->acceptDrops();
        calls += parent != 0 && isGuarded ? "edit " : "edit within a call ";
        StyleAtlasSetApplication(u"Tandrell"); // has other default styles
        return answer;
    },
    [] { StyleAtlasSetApplication(u"AirLab"); },
    [](const char16_t* root, const char16_t* subKey) { calls += QString{"%1|%2"}.arg(root, subKey); }};

TEST(HostWindow, DoesWhatItsMenusSay)
{
    const test::TempPrefix prefix;
    const test::ScopedVariable catalogue{"MENSURA_CATALOGUE", nullptr};
    const test::ScopedVariable language{"LANGUAGE", "en"};
    int count = 1;
    char name[] = "host_window_test";
    char* words[] = {name, nullptr};
    const QApplication application{count, words};
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope,
                       prefix.Path().c_str()); // the last folder
    ownCalls.reload();
    MainWindow window{"AirLab", ownCalls};
    window.show();
    const auto picture = [&window] { return window.centralWidget()->grab().toImage(); };
    const auto drop = [&window](const QList<QUrl>& urls) {
        QMimeData data;
        data.setUrls(urls);
        QDragEnterEvent enter{{9, 9}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier};
        enter.ignore();
        QCoreApplication::sendEvent(&window, &enter);
        if (!enter.isAccepted())
            return false;
        QDropEvent dropped{{9, 9}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier};
        QCoreApplication::sendEvent(&window, &dropped);
        return dropped.isAccepted();
    };
    const QWidget& view = *qobject_cast<QSplitter*>(window.centralWidget())->widget(1);
    const auto status = [&window] { return window.statusBar()->currentMessage(); };
    const QImage hint = picture();
    EXPECT_FALSE(drop({{"http://localhost/a.csv"}}));
    EXPECT_TRUE(
        drop({QUrl::fromLocalFile(DATA_FOLDER "/airquality-1973-05.csv"), QUrl::fromLocalFile("none")}));
    window.AddFiles({DATA_FOLDER "/airquality-1973-06.csv"});
    const auto find = [&window](const char* text) {
        const QList<QAction*> actions = window.findChildren<QAction*>();
        return *std::ranges::find(actions, text, &QAction::text);
    };
    const QImage before = picture();
    reload = find("&Reload styles");
    for (const bool isDrawn : {false, true, false}) {
        find("&Curve styles...")->trigger();
        EXPECT_EQ(picture() != before, isDrawn) << answer;
        EXPECT_EQ(window.findChild<QMessageBox*>() != nullptr, answer == -1);
        EXPECT_EQ(status().isEmpty(), answer == STYLEATLAS_EDIT_CANCELLED);
        delete window.findChild<QMessageBox*>();
        reload->trigger();
        EXPECT_EQ(picture(), before) << answer;
        answer = answer == -1 ? STYLEATLAS_EDIT_OK : STYLEATLAS_EDIT_CANCELLED;
    }
    QTimer::singleShot(0, [] {
        auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        dialog->findChild<QLineEdit*>()->setText("S-1-5");
        dialog->accept();
    });
    find("Switch &user...")->trigger();
    EXPECT_EQ(calls, "edit edit edit S-1-5|Software\\Halvorn");
    EXPECT_EQ(status(), "The styles are those of the user S-1-5.");
    EXPECT_THROW(FirstSettings("no/name"), std::runtime_error);
    EXPECT_EQ(window.findChild<QPlainTextEdit*>()->toPlainText(), "none: No such file or directory");
    const auto& files = *window.findChild<QListWidget*>();
    for (const char* const file : {"1  airquality-1973-05.csv", "2  none"})
        files.findItems(file, Qt::MatchExactly).front()->setSelected(true);
    find("&Remove from list")->trigger();
    EXPECT_EQ(files.item(0)->text(), "1  airquality-1973-06.csv");
    EXPECT_EQ(window.statusBar()->findChild<QLabel*>()->text(), "AirLab - files: 1, curves: 4");
    EXPECT_FALSE(window.findChild<QPlainTextEdit*>()->isVisible()) << "nothing to report";
    find("&Remove from list")->trigger();
    EXPECT_EQ(status(), "Select files in the list first.");

    const auto choose = [&](const char* command, const QString& path) {
        QTimer::singleShot(0, [&] {
            auto& dialog = dynamic_cast<QFileDialog&>(*QApplication::activeModalWidget());
            dialog.selectFile(path);
            static_cast<QDialog&>(dialog).accept();
        });
        find(command)->trigger();
    };
    const auto exportTo = [&](const QString& path) {
        QTimer::singleShot(0, [&] {
            auto& dialog = dynamic_cast<QDialog&>(*QApplication::activeModalWidget());
            dialog.findChild<QLineEdit*>()->setText(path);
            dialog.accept();
        });
        find("&Export picture...")->trigger();
    };
    const QString saved = QString::fromStdString(prefix.Path() / "saved.png");
    exportTo(saved);
    EXPECT_EQ(status(), "The picture is in " + saved);
    EXPECT_EQ(QImage{saved}.size(), view.size());
    const QString dangling = QString::fromStdString(prefix.Path() / "dangling.png");
    QFile::link("/nowhere/picture", dangling);
    exportTo(dangling);
    EXPECT_EQ(status(), dangling + " cannot be written: No such file or directory");
    find("&Copy picture")->trigger();
    EXPECT_EQ(QGuiApplication::clipboard()->image().convertToFormat(QImage::Format_RGB32),
              QImage{saved}.convertToFormat(QImage::Format_RGB32));
    choose("&Open...", DATA_FOLDER "/airquality-1973-07.csv");
    EXPECT_EQ(files.count(), 2);
    files.item(0)->setSelected(true);
    files.item(1)->setSelected(true);
    find("&Remove from list")->trigger();
    EXPECT_EQ(picture(), hint);
    find("&Quit")->trigger();
    EXPECT_FALSE(window.isVisible());
}

} // namespace
