// The editor of the whole atlas: what its user does, and what is in table, registry and folders after it.
#include "support/AtlasHost.h"

#include <QScreen>
#include <dialogs/resource.h>
#include <malloc.h>

namespace
{

namespace fs = std::filesystem;
using namespace test;

class StyleAtlasDialog : public test::AtlasHost
{
protected:
    // A digit is the width that the first cell gets; e edits it, l loads a, s saves as b; o and c are
    // buttons.
    void Act(k_StyleAtlasDialog& dialog, char step)
    {
        if (step == 'l' || step == 's') {
            m_asked = Pick(dialog, step == 'l' ? IDC_LOAD : IDC_SAVE_AS, PathOf(step == 'l' ? "a" : "b"));
            EXPECT_EQ(WidgetOf(dialog.m_FilePathText).windowTitle(),
                      step == 'l' ? "C:\\a.layout" : "C:\\b.layout");
        } else if (step == 'e')
            EditCell(dialog, 180);
        else if (step == 'o' || step == 'c')
            Click(dialog, step == 'o' ? IDOK : IDCANCEL);
        else
            dialog.m_Atlas.GetRowStyle(0, 0)->LineWidth = static_cast<short>(step - '0');
    }

    QString m_asked; // in the last file dialog
};

TEST_F(StyleAtlasDialog, TakesOverAndStoresAtOkAlone)
{
    const struct {
        const char* Steps;
        int Result;
        short Answer;   // of the table after it
        short Reloaded; // and of the file that the registry names
        QString Asked;
    } cases[] = {{"o", 1, 1, 1, {}},
                 {"5c", 2, 1, 1, {}},
                 {"4eo", 1, 5, 5, {}},
                 {"6sc", 2, 5, 5, "Stilatlas speichern Style.Atlas"},
                 {"lc", 2, 5, 2, QString("Stilatlas \u00F6ffnen Style.Atlas")},
                 {"6s7o", 1, 7, 7, "Stilatlas speichern a.layout"},
                 {"8lo", 1, 2, 2, QString("Stilatlas \u00F6ffnen b.layout")}};
    for (const auto& c : cases) {
        const short before = Query();
        m_asked.clear();
        const auto user = [&](k_StyleAtlasDialog& dialog) {
            for (const char* step = c.Steps; *step != 0; Act(dialog, *step++))
                EXPECT_EQ(Query(), before) << "the old table answers";
        };
        EXPECT_EQ(Edit(user), c.Result) << c.Steps;
        EXPECT_EQ(Query(), c.Answer) << c.Steps;
        EXPECT_TRUE(fs::exists(m_prefix.Native("ProgramData/Halvorn/Bench/Style.Atlas")));
        ReloadStyleAtlas();
        EXPECT_EQ(Query(), c.Reloaded) << c.Steps;
        EXPECT_EQ(m_asked, c.Asked);
    }
    g_StyleAtlas.Load(_T("C:\\b.layout"));
    EXPECT_EQ(Query(), 7);
}

TEST_F(StyleAtlasDialog, IsTheOneOfTheHostAndOfTheUser)
{
    k_StyleAtlas settings;
    const std::tuple<LPCTSTR, const char*, LPCTSTR, short> users[] = {
        {_T(".DEFAULT\\Software\\Halvorn\\Quorvia"), "b", _T("C:\\b.layout"), short{3}},
        {_T("S-1\\Software"), "c", _T("C:\\c.layout"), short{4}}};
    for (const auto& [key, name, path, width] : users) {
        Write(name, 32, width);
        settings.RegistryPath = key;
        settings.SetFilePath(path);
    }
    g_StyleAtlas.FilePath.Empty(); // or it is carried over to the settings of the next host
    StyleAtlasSetApplication(u"QUORVIA");
    EXPECT_EQ(Query(), 3);
    StyleAtlasChangeUserInfo(u"S-1", u"Software");
    EXPECT_EQ(Query(), 4);
}

TEST_F(StyleAtlasDialog, ShowsBothEndsOfALongPathAndOpensWhereTheFileIs)
{
    Edit([&](k_StyleAtlasDialog& dialog) {
        std::vector<QImage> pictures;
        for (const TCHAR last : {u'a', u'b'}) {
            const std::u16string path = u"C:\\" + std::u16string(300, u'x') + u'\\' + last;
            dialog.m_FilePathText.SetWindowText(path.c_str());
            pictures.push_back(test::PictureOf(dialog.m_FilePathText));
        }
        EXPECT_FALSE(pictures[0] == pictures[1]);
    });
    m_prefix.MakeFolder("f");
    const std::string folder = m_prefix.Path();
    for (const auto& [path, folders] : {std::pair(_T(""), "/drive_c|"), {_T("C:\\f\\x"), "/drive_c/f|"}}) {
        g_StyleAtlas.FilePath = path;
        QString opened;
        Edit([&](k_StyleAtlasDialog& dialog) {
            for (const int button : {IDC_LOAD, IDC_SAVE_AS}) {
                test::AnswerNext<QFileDialog>([&](QFileDialog& shown) {
                    opened += shown.directory().path() + '|';
                    shown.reject();
                });
                Click(dialog, button);
            }
        });
        EXPECT_EQ(opened.toStdString(), folder + folders + folder + folders);
    }
}

TEST_F(StyleAtlasDialog, LivesOnWithWhateverFileIsNamed)
{
    Write("none", 0, 0);
    Write("one", 1, 4);
    Write("many", 40, 5);
    Write("other", 32, 6, 77);
    test::WriteWhole(PathOf("damaged"), test::ReadWhole(PathOf("one")).substr(0, 40));
    test::WriteWhole(PathOf("gone"), "");
    fs::create_symlink("/dev/full", PathOf("full"));
    const std::string diskFull = "Error: Disk full while accessing C:\\full.layout. 48"; // and again at OK
    const struct {
        int Button;
        fs::path File;
        INT_PTR Rows;
        short Answer;
        std::string Told;
    } cases[] = {{IDC_LOAD, PathOf("none"), 6, -1, {}},
                 {IDC_LOAD, PathOf("one"), 6, 5, {}},
                 {IDC_LOAD, PathOf("many"), 6, 6, {}},
                 {IDC_LOAD, PathOf("other"), 7, 2, {}},
                 {IDC_LOAD, PathOf("gone"), 6, 2, {}},
                 {IDC_LOAD, PathOf("damaged"), 6, 2, "Fehler: Der Stilatlas kann nicht geladen werden. 48"},
                 {IDC_SAVE_AS, PathOf("no/folder"), 6, 3, {}},
                 {IDC_SAVE_AS, "/proc/new.layout", 6, 4, {}},
                 {IDC_SAVE_AS, PathOf("full"), 6, 5, diskFull + diskFull}};
    for (const auto& c : cases) {
        test::told.clear();
        g_StyleAtlas.ColumnCount = 32;

        const auto user = [&](k_StyleAtlasDialog& dialog) {
            const QWidget& path = WidgetOf(dialog.m_FilePathText);
            const QString before = path.windowTitle();
            Pick(dialog, c.Button, c.File, c.File.stem() == "gone");
            EXPECT_EQ(path.windowTitle() != before, c.Button == IDC_LOAD) << c.File;
            EXPECT_EQ(dialog.m_Atlas.Rows.GetSize(), c.Rows) << c.File;
            EditCell(dialog, 180);
            EditCell(dialog, 360); // a later one
            Choose(dialog.m_ColumnTree.m_Tree, 0);
            Act(dialog, 'o');
        };
        EXPECT_EQ(Edit(user), 1) << "saved or not";
        EXPECT_EQ(Query(), c.Answer) << c.File;
        EXPECT_EQ(test::told.toStdString(), c.Told);
    }
}

TEST_F(StyleAtlasDialog, HasItsMenuEverywhereAndShowsWhatARuleHasDone)
{
    const auto user = [](k_StyleAtlasDialog& dialog) {
        const k_ColumnTreeCtrl& frame = dialog.m_ColumnTree;
        const CTreeCtrl& tree = frame.m_Tree;
        EXPECT_EQ(WidgetOf(dialog).windowTitle(), "Stilatlas f\u00FCr Symbole und Farben");
        EXPECT_EQ(dynamic_cast<QPushButton&>(WidgetOf(*dialog.GetDlgItem(IDC_LOAD))).text(), "Laden...");
        for (const CWnd* const place :
             std::initializer_list<const CWnd*>{&dialog, &tree, &frame.m_Header, &frame.m_HorScroll,
                                                &dialog.m_FilePathText, dialog.GetDlgItem(IDOK)})
            EXPECT_EQ(Choose(*place, 6),
                      "Symbole je Datei setzen|Farben je Datei setzen|"
                      "Symbole je Hauptgr\u00F6\u00DFe setzen|Farben je Hauptgr\u00F6\u00DFe setzen||"
                      "Alle aufklappen|Alle zuklappen|");
        const auto countRows = [&tree] {
            int count = 0;
            for (HTREEITEM row = tree.GetNextItem(nullptr, TVGN_ROOT); row != nullptr; ++count)
                row = tree.GetNextItem(row, TVGN_NEXTVISIBLE);
            return count;
        };
        EXPECT_EQ(countRows(), 2);
        Choose(dialog, 5);
        EXPECT_EQ(countRows(), 6);
        QWidget& widget = WidgetOf(dialog);
        const auto screen = [&widget] { return widget.screen()->grabWindow(widget.winId()).toImage(); };
        for (const int rule : {3, 0, 1, 2}) {
            const QImage before = screen();
            Choose(dialog, rule);
            EXPECT_FALSE(screen() == before) << rule;
        }
    };
    EXPECT_EQ(Edit(user), 2);
}

TEST_F(StyleAtlasDialog, GoesWithTheHostsWindowAtEveryStage)
{
    static const auto clickTwice = [](k_StyleAtlasDialog& dialog) {
        QTest::mouseDClick(&ClientOf(dialog.m_ColumnTree.m_Tree), Qt::LeftButton, {}, {180, 5});
    };
    static QWidget* host = nullptr;
    static const auto end = [] { QTimer::singleShot(0, [] { delete host; }); };
    void (*const stages[])(k_StyleAtlasDialog&) = {
        [](k_StyleAtlasDialog& dialog) { end(), clickTwice(dialog); },
        [](k_StyleAtlasDialog& dialog) { end(), Click(dialog, IDC_LOAD); },
        [](k_StyleAtlasDialog& dialog) { end(), ClickRight(dialog.m_ColumnTree.m_Tree, CPoint(180, 5)); },
        [](k_StyleAtlasDialog& dialog) {
            QTimer::singleShot(0, [] {
                QWidget& button = WidgetOf(FrontDialog<k_CurveLayoutDlg>()->m_SymbolColorPicker);
                QTest::mouseClick(&button, Qt::LeftButton);
                auto* const popup = button.findChild<QWidget*>();
                QTest::keyClick(popup, Qt::Key_Up); // to "More colors"
                end(), QTest::keyClick(popup, Qt::Key_Return);
            });
            clickTwice(dialog);
        }};
    for (const auto& stage : stages) {
        host = new QWidget;
        QTimer::singleShot(0, [&stage] { stage(*test::FrontDialog<k_StyleAtlasDialog>()); });
        EXPECT_EQ(EditStyleAtlas(host->winId()), 2) << &stage - stages;
    }
}

TEST_F(StyleAtlasDialog, WritesTheUnitLog)
{
    const auto user = [](k_StyleAtlasDialog& dialog) {
        EXPECT_FALSE(test::WidgetOf(*dialog.GetDlgItem(IDC_UNIT_LOG)).isVisible());
        dialog.SendMessage(WM_COMMAND, MAKEWPARAM(IDC_UNIT_LOG, BN_CLICKED));
    };
    const fs::path file = m_prefix.Native("TEMP/UnitsLog.txt");
    Edit(user);
    EXPECT_FALSE(fs::exists(file)) << "without the folder";
    m_prefix.MakeFolder("TEMP");
    test::WriteWhole(file, std::string(9999, 'x'));
    const auto expectLog = [&](const std::u16string& lines) {
        Edit(user);
        const std::u16string text = u"Name\tQuantity\tSubquan\tIndx\tdevice\tflags\r\n" + lines;
        EXPECT_EQ(test::ReadWhole(file),
                  std::string(reinterpret_cast<const char*>(text.data()), 2 * text.size()));
    };
    expectLog(
        u"\t\tQuantity = 1\tSubQuantity = 0\tIndex = 0\tDevice = 0\tFlags = 0\r\n"
        u"\x3A9\t\tQuantity = 2\tSubQuantity = 70000\tIndex = 300\tDevice = 65535\tFlags = -2147483647\r\n"
        u"U\t\tQuantity = 2\tSubQuantity = -2\tIndex = 1\tDevice = 7\tFlags = 5\r\n");
    // The real unit library, which the call binds.
    test::WriteWhole(PathOf("units"), "0; 30; 0; 0; 0; T; temperature\n");
    const test::ScopedVariable catalogue("MENSURA_CATALOGUE", PathOf("units").c_str());
    g_App.m_hUnitLibrary = nullptr;
    expectLog(u"T (temperature)\t\tQuantity = 30\tSubQuantity = 0\tIndex = 0\tDevice = 0\tFlags = 0\r\n");
}

TEST_F(StyleAtlasDialog, TakesNoMoreMemoryAfterADaysWork)
{
    constexpr int rounds = 500;
    constexpr std::size_t tolerance = 64 << 10;
    std::size_t afterTen = 0;
    for (int round = 1; round <= rounds; ++round) {
        const short width = static_cast<short>(round % 9);
        const short expected = round % 2 == 0 ? width : Query();
        Edit([&](k_StyleAtlasDialog& dialog) {
            Act(dialog, static_cast<char>('0' + width));
            Act(dialog, round % 2 == 0 ? 'o' : 'c');
        });
        ReloadStyleAtlas();
        ASSERT_EQ(Query(), expected);
        if (round == 10)
            afterTen = mallinfo2().uordblks;
    }
    EXPECT_LE(mallinfo2().uordblks, afterTen + tolerance);
}

} // namespace
