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
        calls += parent != 0 && !reload->isEnabled() ? "edit " : "edit within a call ";
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
    ownCalls.reload();
    MainWindow window{"AirLab", ownCalls};
    window.AddFiles({DATA_FOLDER "/airquality-1973-05.csv", "none", DATA_FOLDER "/airquality-1973-06.csv"});
    const auto find = [&window](const char* text) {
        const QList<QAction*> actions = window.findChildren<QAction*>();
        return *std::ranges::find(actions, text, &QAction::text);
    };
    const auto picture = [&window] { return window.centralWidget()->grab().toImage(); };
    const QImage before = picture();
    reload = find("&Reload styles");
    for (const bool isDrawn : {false, true, false}) {
        find("&Curve styles...")->trigger();
        EXPECT_EQ(picture() != before, isDrawn) << answer;
        EXPECT_EQ(window.findChild<QMessageBox*>() != nullptr, answer == -1);
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
    EXPECT_THROW(FirstSettings("no/name"), std::runtime_error);
    EXPECT_EQ(window.findChild<QPlainTextEdit*>()->toPlainText(), "none: No such file or directory");
    const auto& files = *window.findChild<QListWidget*>();
    for (const char* const file : {"1  airquality-1973-05.csv", "2  none"})
        files.findItems(file, Qt::MatchExactly).front()->setSelected(true);
    find("&Remove from list")->trigger();
    EXPECT_EQ(files.item(0)->text(), "1  airquality-1973-06.csv");
    EXPECT_EQ(window.statusBar()->findChild<QLabel*>()->text(), "AirLab - files: 1, curves: 4");
}

} // namespace
