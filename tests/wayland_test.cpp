// The road from a cell to the file under a Wayland compositor that shows every window in the middle of its
// screen, as a user goes it with a real pointer.
#include "support/AtlasHost.h"
#include "support/Process.h"

#include <dialogs/resource.h>
#include <thread>

namespace
{

struct Place {
    QWidget* Widget; // null: not there yet
    QPoint Point;
};
using Find = std::function<Place()>;

// The client area of the dialog in front, on the screen. The program itself knows no such place.
QPoint CornerOfDialog()
{
    const QWindow& window = *QApplication::activeModalWidget()->windowHandle();
    const QMargins frame = window.frameMargins();
    QRect place({}, window.size().grownBy(frame));
    place.moveCenter(QRect({}, window.screen()->size()).center());
    return place.topLeft() + QPoint(frame.left(), frame.top());
}

void Click(const Find& find, const char* times = "1")
{
    const auto isReached = [&] {
        const auto [widget, point] = find();
        const QWindow* const window = widget != nullptr ? widget->window()->windowHandle() : nullptr;
        if (window == nullptr || !window->isExposed())
            return false;
        const QPoint wanted = widget->mapToGlobal(point);
        const QPoint place =
            wanted - QApplication::activeModalWidget()->mapToGlobal(QPoint()) + CornerOfDialog();
        // From beside it: Qt learns the position from a motion alone, and there is none if a window appears
        // under the resting pointer.
        const std::string x = std::to_string(place.x());
        const std::string y = std::to_string(place.y());
        test::Run({"xdotool", "mousemove", std::to_string(place.x() - 1), y, "mousemove", x, y}, {});
        return (QCursor::pos() - wanted).manhattanLength() <= 2; // after an earlier move
    };
    const QDeadlineTimer end(std::chrono::seconds(20));
    for (bool isMet = false; !isMet; QThread::msleep(20)) {
        if (end.hasExpired())
            throw std::runtime_error("waited in vain");
        QMetaObject::invokeMethod(qApp, isReached, Qt::BlockingQueuedConnection, &isMet);
    }
    test::Run({"xdotool", "click", "--repeat", times, "1"}, {});
}

// A point of a control of the dialog that is in front then.
template <class Dialog> Find In(int control, QPoint point = {20, 8})
{
    return [=] {
        const auto* const dialog = test::FrontDialog<Dialog>();
        const bool isThere = dialog != nullptr && QApplication::activePopupWidget() == nullptr;
        return Place{isThere ? &test::WidgetOf(*dialog->GetDlgItem(control)) : nullptr, point};
    };
}

using OnWayland = test::AtlasHost;

TEST_F(OnWayland, LeadsFromTheCellToTheFile)
{
    if (QGuiApplication::platformName() == "offscreen")
        GTEST_SKIP() << "it needs a compositor";
    ASSERT_EQ(QGuiApplication::platformName(), "wayland");
    std::thread user([] {
        try {
            Click(In<k_StyleAtlasDialog>(IDC_COLUMN_TREE, {180, 28}), "2");
            Click(In<k_CurveLayoutDlg>(IDC_SYMBOL_COLOR));
            Click([] { return Place{QApplication::activePopupWidget(), {47, 29}}; });
            Click(In<k_CurveLayoutDlg>(IDOK));
            Click(In<k_StyleAtlasDialog>(IDOK));
        } catch (const std::exception& e) {
            ADD_FAILURE() << e.what();
            QMetaObject::invokeMethod(qApp, &QApplication::closeAllWindows, Qt::QueuedConnection);
        }
    });
    EXPECT_EQ(EditStyleAtlas(0), 1);
    user.join();
    ReloadStyleAtlas();
    EXPECT_EQ(g_StyleAtlas.GetRowStyle(0, 0)->SymbolColor, 0x008B8BU);
}

} // namespace
