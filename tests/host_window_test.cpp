// The window of the sample host: what its menus do, with calls of the test's own in the library's place.
#include "LayoutTool.h"
#include "MainWindow.h"
#include "ProgramIcon.h"

#include "support/TempPrefix.h"

#include <QtWidgets>
#include <filesystem>
#include <gtest/gtest.h>

namespace
{

using namespace atlashost;

int answer = -1;
QString calls;
QAction* reload = nullptr;
const QMainWindow* shown = nullptr;

const LibraryCalls ownCalls{
    [](std::uintptr_t parent) {
        const bool isGuarded =
            !reload->isEnabled() && !shown->acceptDrops() && !shown->findChild<QListWidget*>()->acceptDrops();
        calls += parent != 0 && isGuarded ? "edit " : "edit within a call ";
        StyleAtlasSetApplication(u"Tandrell"); // has other default styles
        return answer;
    },
    [] { StyleAtlasSetApplication(u"AirLab"); },
    [](const char16_t* root, const char16_t* subKey) { calls += QString{"%1|%2"}.arg(root, subKey); }};

class HostWindow : public testing::Test
{
protected:
    HostWindow()
    {
        // The last folder, the recent files.
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, prefix.Path().c_str());
        ownCalls.reload();
    }

    const test::TempPrefix prefix;

private:
    const test::ScopedVariable m_catalogue{"MENSURA_CATALOGUE", nullptr};
    const test::ScopedVariable m_language{"LANGUAGE", "en"};
    int m_count = 1;
    char m_name[17] = "host_window_test";
    char* m_words[2] = {m_name, nullptr};
    const QApplication m_application{m_count, m_words};
};

TEST_F(HostWindow, DoesWhatItsMenusSay)
{
    MainWindow window{"AirLab", ownCalls};
    window.show();
    shown = &window;
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
    const auto status = [&window] { return window.statusBar()->currentMessage(); };
    const auto find = [&window](const char* text) {
        const QList<QAction*> actions = window.findChildren<QAction*>();
        return *std::ranges::find(actions, text, &QAction::text);
    };
    const QImage hint = picture();
    EXPECT_FALSE(drop({{"http://localhost/a.csv"}}));
    EXPECT_TRUE(
        drop({QUrl::fromLocalFile(DATA_FOLDER "/airquality-1973-05.csv"), QUrl::fromLocalFile("none")}));
    window.AddFiles({DATA_FOLDER "/airquality-1973-06.csv"});
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
    for (const auto button : {QDialogButtonBox::Cancel, QDialogButtonBox::Ok}) {
        QTimer::singleShot(0, [button] {
            auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            dialog->findChild<QLineEdit*>()->setText("S-1-5");
            EXPECT_GE(dialog->findChild<QLineEdit*>()->width(), 320);
            EXPECT_EQ(dialog->windowTitle(), "Switch user");
            dialog->findChild<QDialogButtonBox*>()->button(button)->click();
            dialog->close();
        });
        find("Switch &user...")->trigger();
    }
    EXPECT_EQ(calls, "edit edit edit S-1-5|Software\\Halvorn");
    EXPECT_EQ(status(), "The styles are those of the user S-1-5.");
    EXPECT_THROW(FirstSettings("no/name"), std::runtime_error);
    MainWindow nameless{"no/name", ownCalls};
    for (QAction* const action : nameless.findChildren<QAction*>())
        action->text() == "Switch &user..." ? action->trigger() : void();
    EXPECT_NE(nameless.findChild<QMessageBox*>(), nullptr);
    const auto descriptors = [] {
        return std::distance(std::filesystem::directory_iterator{"/proc/self/fd"}, {});
    };
    const auto openBefore = descriptors();
    const ToolResult refused = RunLayoutTool({"nothing"}, ToolErrors::InOutput);
    EXPECT_EQ(descriptors(), openBefore);
    EXPECT_TRUE(refused.status == 2 && refused.output.find("\"nothing\"") != std::string::npos);
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
    const QImage everything = picture();
    find("Zoom &in")->trigger();
    const QImage zoomed = picture();
    find("Zoom &out")->trigger();
    EXPECT_TRUE(zoomed != everything && picture() != zoomed);
    EXPECT_EQ(find("Zoom &out")->shortcut(), QKeySequence{QKeySequence::ZoomOut});
    find("Zoom &out")->trigger();
    find("&Show everything")->trigger();
    EXPECT_EQ(picture(), everything);
    choose("&Open...", DATA_FOLDER "/airquality-1973-07.csv");
    EXPECT_EQ(files.count(), 2);
    files.item(0)->setSelected(true);
    files.item(1)->setSelected(true);
    find("&Remove from list")->trigger();
    EXPECT_EQ(picture(), hint);
    find("&Quit")->trigger();
    EXPECT_FALSE(window.isVisible());
}

TEST_F(HostWindow, ChecksStylesAndKeepsWhatItWas)
{
    std::optional<MainWindow> window{std::in_place, "AirLab", ownCalls};
    window->show();
    const auto trigger = [&window](const QString& text) {
        const QList<QAction*> actions = window->findChildren<QAction*>();
        const auto found = std::ranges::find(actions, text, &QAction::text);
        ASSERT_NE(found, actions.end()) << text.toStdString();
        (*found)->trigger();
    };
    const auto message = [&window] {
        const std::unique_ptr<QMessageBox> box{window->findChild<QMessageBox*>()};
        EXPECT_TRUE(!box || (box->isVisible() && box->textFormat() == Qt::PlainText &&
                             box->textInteractionFlags() & Qt::TextSelectableByKeyboard &&
                             box->testAttribute(Qt::WA_DeleteOnClose)));
        return box ? box->text() : "";
    };
    const auto remarks = [&window] { return window->findChild<QPlainTextEdit*>()->toPlainText(); };
    EXPECT_TRUE(window->centralWidget()->findChild<QPushButton*>()->isVisible());
    window->SetStartErrors({"no folder"});
    EXPECT_EQ(remarks(), "no folder");

    const auto month = [](int number) {
        return QByteArray{DATA_FOLDER "/airquality-1973-0"} + QByteArray::number(number) + ".csv";
    };
    window->AddFiles({month(5), month(6)});
    EXPECT_FALSE(window->centralWidget()->findChild<QPushButton*>()->isVisible());
    trigger("C&heck styles...");
    auto& list = *window->findChild<QTreeWidget*>();
    auto& dialog = dynamic_cast<QDialog&>(*list.window());
    EXPECT_FALSE(dialog.isModal());
    EXPECT_TRUE(list.allColumnsShowFocus());
    for (const QLabel* const label : dialog.findChildren<QLabel*>())
        EXPECT_TRUE(label->wordWrap());
    EXPECT_TRUE(dialog.findChild<QLabel*>()->text().startsWith("None:") && !list.isEnabled());
    for (const QPushButton* const button : dialog.findChildren<QPushButton*>())
        EXPECT_EQ(button->isEnabled(), button->text() != "&Mark in the plot" && button->text() != "&Unmark");
    EXPECT_NEAR(dialog.geometry().center().x(), window->geometry().center().x(), 3);
    EXPECT_GT(dialog.geometry().center().y(), window->geometry().center().y());
    dialog.move(5, 7);
    window->AddFiles({month(7), month(8)});
    ASSERT_EQ(list.topLevelItemCount(), 8) << "two pairs a panel";
    const auto& pair = *list.topLevelItem(0);
    EXPECT_EQ(list.visualItemRect(&pair).left(), 0) << "there is nothing to unfold";
    for (int column = 0; column < 4; ++column) {
        EXPECT_GE(list.columnWidth(column), list.fontMetrics().horizontalAdvance(pair.text(column)));
        EXPECT_EQ(pair.icon(column).isNull(), column % 3 == 0);
    }
    const QImage sample = pair.icon(1).pixmap(list.iconSize(), QIcon::Selected).toImage();
    EXPECT_EQ(sample.pixelColor(0, 0), Qt::white) << "paper, selected too";
    const auto cells = [&list] {
        QStringList texts;
        for (int column = 0; column < 4; ++column)
            texts += list.topLevelItem(0)->text(column);
        return texts.join('|');
    };
    EXPECT_EQ(cells(), "Ozone, mean of 13:00 to 15:00|2  airquality-1973-06|4  airquality-1973-08|"
                       "too close in colour: greyscale 5.3, protan (red-blind) 2.0");
    const auto picture = [&window] {
        return qobject_cast<QSplitter*>(window->centralWidget())->widget(1)->grab().toImage();
    };
    const QImage before = picture();
    QKeyEvent enter{QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier};
    QCoreApplication::sendEvent(&list, &enter);
    EXPECT_NE(picture(), before);
    const auto button = [&dialog](const char* text) {
        const QList<QPushButton*> buttons = dialog.findChildren<QPushButton*>();
        return *std::ranges::find(buttons, QString{text}, &QPushButton::text);
    };
    button("&Unmark")->click();
    EXPECT_TRUE(picture() == before && !button("&Unmark")->isEnabled());
    button("&Mark in the plot")->click();
    EXPECT_TRUE(picture() != before && button("&Unmark")->isEnabled());
    trigger("Read &again");
    EXPECT_TRUE(list.topLevelItemCount() == 8 && picture() == before && !button("&Unmark")->isEnabled());
    EXPECT_EQ(list.topLevelItem(0)->toolTip(3), list.topLevelItem(0)->text(3));
    EXPECT_EQ(dialog.windowTitle(), "Check styles");
    QCoreApplication::sendEvent(&list, &enter);
    window->activateWindow();
    QCoreApplication::processEvents();
    EXPECT_FALSE(dialog.isActiveWindow());
    trigger("C&heck styles...");
    QCoreApplication::processEvents();
    EXPECT_TRUE(dialog.isActiveWindow());
    for (const QLabel* const label : dialog.findChildren<QLabel*>())
        EXPECT_TRUE(label->wordWrap()) << qPrintable(label->text());
    dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Close)->click();
    EXPECT_EQ(picture(), before);
    trigger("C&heck styles...");
    EXPECT_EQ(dialog.pos(), QPoint(5, 7)) << "where the user has moved it";
    EXPECT_EQ(dialog.focusWidget(), &list);
    const QString first = cells();
    answer = STYLEATLAS_EDIT_OK;
    reload = window->findChild<QAction*>();
    shown = &*window;
    trigger("&Curve styles...");
    EXPECT_TRUE(list.topLevelItemCount() != 8 || cells() != first) << "other styles";
    trigger("&Reload styles");
    dialog.close();

    auto& files = *window->findChild<QListWidget*>();
    files.setCurrentRow(2);
    trigger("Move &up");
    trigger("Move &up");
    trigger("Move &up"); // is the first already
    EXPECT_EQ(files.item(0)->text(), "1  airquality-1973-07.csv");
    EXPECT_EQ(files.item(2)->text(), "3  airquality-1973-06.csv");
    EXPECT_TRUE(files.item(0)->isSelected() && files.currentRow() == 0);
    EXPECT_NE(picture(), before) << "the number decides the style";
    trigger("Move &down");
    trigger("Move &down");
    EXPECT_EQ(picture(), before);
    files.item(1)->setSelected(true); // and the third
    trigger("Move &down");
    EXPECT_EQ(files.item(1)->text(), "2  airquality-1973-08.csv");
    EXPECT_EQ(files.item(3)->text(), "4  airquality-1973-07.csv");
    trigger("Move &up");
    EXPECT_EQ(picture(), before);
    EXPECT_EQ(message(), "");
    window->AddFiles({29, month(9)});
    EXPECT_TRUE(message().startsWith("There are styles for 32 files only: the curves of file 33 "));
    EXPECT_TRUE(remarks().contains("file 33 "));
    const QListWidgetItem* const ends[] = {files.item(31), files.item(32)};
    EXPECT_EQ(ends[0]->toolTip() + "\nwithout a style", ends[1]->toolTip());
    EXPECT_TRUE(ends[0]->toolTip().startsWith('/') && ends[0]->foreground() != ends[1]->foreground());

    // A build folder may have it, and a browser would come up.
    if (!QFile::exists(QCoreApplication::applicationDirPath() + "/" ATLAS_HOST_BIN_TO_MANUAL)) {
        trigger("&Manual");
        EXPECT_TRUE(message().startsWith("The manual is not installed."));
    }
    trigger("&About Atlas Host");
    const QString about = message();
    EXPECT_TRUE(about.contains(ATLAS_HOST_VERSION) && about.contains(qVersion()) &&
                about.contains("Licence"));
    const QString gone = QString::fromStdString(prefix.Path() / "gone.csv");
    test::WriteWhole(gone.toStdString(), "Date,Ozone\n1,2\n");
    window->AddFiles({gone.toUtf8()});
    QFile::remove(gone);
    delete window->findChild<QMessageBox*>();
    window->resize(700, 500);
    window->findChild<QSplitter*>("all")->setSizes({300, 400});
    window->findChild<QSplitter*>("side")->setSizes({250, 150});
    const auto sizes = [&window] {
        return window->findChild<QSplitter*>("all")->sizes() + window->findChild<QSplitter*>("side")->sizes();
    };
    const QList<int> sizesBefore = sizes();
    window->close();
    window.emplace("AirLab", ownCalls);
    window->show();
    EXPECT_EQ(window->size(), QSize(700, 500));
    window->AddFiles(QByteArrayList(1100, "none"));
    QCoreApplication::processEvents();
    EXPECT_EQ(sizes(), sizesBefore);
    EXPECT_EQ(window->findChild<QPlainTextEdit*>()->blockCount(), 1000) << "the last remarks";
    delete window->findChild<QMessageBox*>();
    window.emplace("AirLab", ownCalls);
    trigger("&1  " + gone);
    EXPECT_TRUE(message().startsWith(gone + " is no longer there."));
    for (QMenu* const menu : window->findChildren<QMenu*>())
        emit menu->aboutToShow(); // the list is read again
    trigger("&1  " + month(9));
    EXPECT_EQ(window->findChild<QListWidget*>()->count(), 1);
    trigger("&Clear list");
    const QList<QAction*> left = window->findChildren<QAction*>();
    EXPECT_TRUE(
        std::ranges::none_of(left, [](const QAction* action) { return action->text().startsWith("&1"); }));
}

TEST_F(HostWindow, IsLaidOutForItsUsers)
{
    MainWindow window{"AirLab", ownCalls};
    window.show();
    EXPECT_EQ(window.windowTitle(), "Curves - AirLab");
    EXPECT_EQ(MainWindow("", ownCalls).windowTitle(), "Curves");
    const auto textOf = [](const QAction* menu) {
        QStringList entries{menu->text()};
        for (const QAction* const entry : menu->menu()->actions())
            entries += entry->isSeparator() ? "-"
                       : entry->isEnabled() ? entry->text() + " " + entry->shortcut().toString()
                                            : "(" + entry->text() + ")";
        return entries.join('|').remove('&').toStdString() + '\n';
    };
    std::string menus;
    for (const QAction* const menu : window.menuBar()->actions())
        menus += textOf(menu);
    EXPECT_EQ(menus,
              "File|Open... Ctrl+O|Open recent |Remove from list Del|Move up Alt+Up|Move down Alt+Down|"
              "Read again F5|Export picture... Ctrl+S|Copy picture Ctrl+C|Print... Ctrl+P|-|Quit Ctrl+Q\n"
              "View|Zoom in Ctrl++|Zoom out Ctrl+-|Show everything Ctrl+0\n"
              "Styles|Curve styles... Ctrl+E|Check styles... Ctrl+K|Reload styles Ctrl+R|"
              "Switch user... Ctrl+U\nHelp|Manual F1|-|About Atlas Host |About Qt \n");
    const QAction& recent = *window.menuBar()->actions()[0]->menu()->actions()[1];
    EXPECT_EQ(textOf(&recent), "Open recent|(No files yet)|-|(Clear list)\n");
    auto& files = *window.findChild<QListWidget*>();
    EXPECT_TRUE(window.acceptDrops() && files.acceptDrops() && files.accessibleName() == "Files");
    EXPECT_EQ(files.dragDropMode(), QAbstractItemView::InternalMove);
    EXPECT_EQ(files.textElideMode(), Qt::ElideMiddle);
    EXPECT_TRUE(window.findChild<QPlainTextEdit*>()->isReadOnly());
    EXPECT_FALSE(window.findChild<QPlainTextEdit*>()->acceptDrops()) << "the window takes files";

    QWidget& view = *qobject_cast<QSplitter*>(window.centralWidget())->widget(1);
    QCoreApplication::processEvents();
    const auto labels = view.findChildren<QLabel*>();
    for (const QLabel* const label : labels)
        EXPECT_NEAR(label->mapTo(&view, label->rect().center()).x(), view.rect().center().x(), 8);
    EXPECT_GT(labels[1]->font().pointSizeF(), labels[2]->font().pointSizeF());
    EXPECT_EQ(labels[2]->foregroundRole(), QPalette::PlaceholderText);
    for (const QLabel* const label : {labels[1], labels[2]})
        EXPECT_TRUE(label->alignment() == Qt::AlignCenter && label->wordWrap());
    EXPECT_EQ(view.findChild<QPushButton*>()->mapTo(&view, QPoint{}).y() -
                  labels[1]->mapTo(&view, labels[1]->rect().bottomLeft()).y() - 1,
              14);
    EXPECT_EQ(ProgramIcon().availableSizes().size(), 7);
    EXPECT_EQ(ProgramIcon().pixmap(48).toImage().pixelColor(24, 24).alpha(), 255);
    EXPECT_EQ(ProgramIcon().pixmap(48).toImage().pixelColor(0, 0).alpha(), 0);
    const auto darkest = [](const QImage& image) {
        int value = 255;
        for (int i = 0; i < image.width() * image.height(); ++i)
            value = std::min(value, qGray(image.pixel(i % image.width(), i / image.width())));
        return value;
    };
    EXPECT_GT(darkest(files.viewport()->grab().toImage()), 60) << "a pale hint";
    EXPECT_NEAR(labels.front()->mapTo(&view, QPoint{}).y(),
                view.height() - labels.back()->mapTo(&view, labels.back()->rect().bottomLeft()).y(), 3);
    QTimer::singleShot(0, [] {
        auto& dialog = dynamic_cast<QFileDialog&>(*QApplication::activeModalWidget());
        dialog.selectFile(DATA_FOLDER "/airquality-1973-05.csv");
        static_cast<QDialog&>(dialog).accept();
    });
    view.findChild<QPushButton*>()->click();
    ASSERT_EQ(files.count(), 1);
    QByteArrayList paths{DATA_FOLDER "/airquality-1973-05.csv"};
    for (int i = 0; i < 12; ++i) {
        paths += QByteArray::fromStdString(prefix.Path() / ("recent" + std::to_string(i)));
        test::WriteWhole(paths.back().toStdString(), "t,Ozone\n1,2\n");
    }
    window.AddFiles(paths + paths);
    EXPECT_EQ(recent.menu()->actions().size(), 11) << "nine of them";
    window.AddFiles({paths[9]});
    EXPECT_EQ(recent.menu()->actions()[0]->text(), "&1  " + paths[9]);
    QStringList names;
    for (int i = 0; i < 9; ++i)
        names += recent.menu()->actions()[i]->text().mid(2);
    EXPECT_EQ(names.removeDuplicates(), 0);
    for (int row = 1; row < files.count(); ++row)
        files.item(row)->setSelected(true);
    files.item(0)->setSelected(false);
    window.menuBar()->actions()[0]->menu()->actions()[2]->trigger();
    ASSERT_EQ(files.count(), 1);
    files.clearSelection();
    QCoreApplication::processEvents();
    EXPECT_LT(darkest(files.viewport()->grab().toImage()), 60) << "the names";
    const int listWidth = files.width();
    window.resize(window.width() + 200, window.height());
    EXPECT_EQ(files.width(), listWidth) << "the curves get the room";
}

// Puts the first file of a list behind the second, as a drop does, while the drag runs.
class DropInDrag : public QObject
{
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        auto& list = static_cast<QListWidget&>(*watched);
        if (event->type() == QEvent::ChildAdded) {
            list.removeEventFilter(this);
            list.insertItem(1, list.takeItem(0));
        }
        return false;
    }
};

TEST_F(HostWindow, NumbersItsFilesAfterADrag)
{
    MainWindow window{"AirLab", ownCalls};
    window.show();
    window.AddFiles({DATA_FOLDER "/airquality-1973-05.csv", DATA_FOLDER "/airquality-1973-06.csv"});
    QCoreApplication::processEvents();
    QWidget& view = *qobject_cast<QSplitter*>(window.centralWidget())->widget(1);
    const QImage before = view.grab().toImage();
    auto& files = *window.findChild<QListWidget*>();
    const auto mouse = [&files](QEvent::Type type, QPoint at) {
        QMouseEvent event{type, at, files.viewport()->mapToGlobal(at), Qt::LeftButton, Qt::LeftButton, {}};
        QCoreApplication::sendEvent(files.viewport(), &event);
    };
    const QPoint from = files.visualItemRect(files.item(0)).center();
    mouse(QEvent::MouseButtonPress, from);
    DropInDrag drop;
    files.installEventFilter(&drop);
    for (const int way : {10, 20, 30})
        mouse(QEvent::MouseMove, from + QPoint{0, way});
    EXPECT_EQ(files.item(0)->text(), "1  airquality-1973-06.csv");
    EXPECT_EQ(files.item(1)->text(), "2  airquality-1973-05.csv");
    QCoreApplication::processEvents();
    EXPECT_NE(view.grab().toImage(), before) << "with other styles";
}

TEST_F(HostWindow, ReadsLongFilesUntilCancelled)
{
    MainWindow window{"AirLab", ownCalls};
    window.show();
    std::string content = "date,Ozone\n";
    while (content.size() < 20'000'000)
        content += "2024-01-01,1," + std::string(300, 'x') + "\n";
    const std::string path = prefix.Path() / "long.csv";
    test::WriteWhole(path, content);
    bool isGuarded = false;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] {
        if (auto* const progress = window.findChild<QProgressDialog*>(); progress && progress->isVisible()) {
            isGuarded = progress->isModal() && !window.acceptDrops() && !progress->autoClose() &&
                        progress->windowTitle() == window.windowTitle() &&
                        progress->labelText() == "Reading " + QString::fromStdString(path);
            progress->findChild<QPushButton*>()->click();
        }
    });
    timer.start(1);
    window.AddFiles(QByteArrayList(20, path.c_str()));
    const QString remarks = window.findChild<QPlainTextEdit*>()->toPlainText();
    EXPECT_TRUE(isGuarded && remarks.endsWith("long.csv: the reading was cancelled"))
        << qPrintable(remarks.right(300));
    EXPECT_TRUE(window.acceptDrops());
    EXPECT_EQ(window.findChild<QProgressDialog*>(), nullptr);
}

} // namespace
