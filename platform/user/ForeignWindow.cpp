#include "ForeignWindow.h"

#include "XConnection.h"

#include <QApplication>
#include <QThread>
#include <QWidget>
#include <QWindow>
#include <afxwin.h>
#include <cstdint>
#include <cstdlib>
#include <map>
#include <memory>

namespace
{

// A request whose reply is pending.
struct XCookie {
    unsigned Sequence;
};
using AskXAttributes = XCookie (*)(xcb_connection_t*, std::uint32_t window);
using XAttributesReply = void* (*)(xcb_connection_t*, XCookie, void** error);

bool HasXWindow(std::uintptr_t id)
{
    xcb_connection_t* const connection = XConnection();
    if (connection == nullptr || id == 0 || id > UINT32_MAX)
        return false;
    static const auto ask = XFunction<AskXAttributes>("xcb_get_window_attributes");
    static const auto reply = XFunction<XAttributesReply>("xcb_get_window_attributes_reply");
    if (ask == nullptr || reply == nullptr)
        return false;
    const std::unique_ptr<void, decltype(&std::free)> attributes(
        reply(connection, ask(connection, static_cast<std::uint32_t>(id)), nullptr), &std::free);
    return attributes != nullptr;
}

std::uintptr_t NumberOf(HWND id)
{
    return reinterpret_cast<std::uintptr_t>(id);
}

// Windows can be looked up only on the thread of an application with widgets.
bool CanLookUp()
{
    const auto* const application = qobject_cast<QApplication*>(QCoreApplication::instance());
    return application != nullptr && application->thread() == QThread::currentThread();
}

} // namespace

CWnd* ForeignObject(HWND id)
{
    static auto* const objects = new std::map<HWND, CWnd>;
    const bool isWindow = QCoreApplication::instance() == nullptr
                              ? id != nullptr
                              : CanLookUp() && (ForeignWidget(id) != nullptr || IsForeignXWindow(id));
    if (!isWindow)
        return nullptr;
    CWnd& object = (*objects)[id];
    object.m_hWnd = id;
    return &object;
}

QWidget* ForeignWidget(HWND id)
{
    return QWidget::find(NumberOf(id));
}

bool IsForeignXWindow(HWND id)
{
    return HasXWindow(NumberOf(id)) && ForeignWidget(id) == nullptr;
}

ForeignOwner::ForeignOwner(QWidget& dialog, HWND id)
{
    if (dialog.parentWidget() != nullptr || !IsForeignXWindow(id))
        return;
    m_window.reset(QWindow::fromWinId(NumberOf(id)));
    dialog.winId(); // creates its native window
    dialog.windowHandle()->setTransientParent(m_window.get());
}

ForeignOwner::~ForeignOwner() = default;
