// The desktop's metrics and fonts.
#include "Application.h"

#include <QApplication>
#include <QScreen>
#include <QtConvert.h>
#include <winmsg.h>

namespace
{

constexpr int thumbSize = 17;
constexpr int edgeWidth = 2;
constexpr DWORD ntPlatform = 2;
constexpr UINT sizeWithPadding = sizeof(NONCLIENTMETRICSW);
constexpr UINT sizeWithoutPadding = sizeWithPadding - sizeof(int);

// Of all screens together: a popup is kept on its owner's screen when it is placed.
QSize DesktopSize()
{
    const QScreen* const screen = CanShowWindows() ? QGuiApplication::primaryScreen() : nullptr;
    return screen != nullptr ? screen->virtualSize() : QSize(0, 0);
}

LOGFONTW DesktopFont()
{
    return CanShowWindows() ? gdi::ToLogFont(QApplication::font()) : LOGFONTW{};
}

} // namespace

int GetSystemMetrics(int index)
{
    switch (index) {
    case SM_CXSCREEN:
        return DesktopSize().width();
    case SM_CYSCREEN:
        return DesktopSize().height();
    case SM_CXVSCROLL:
    case SM_CYHSCROLL:
    case SM_CYVTHUMB:
    case SM_CXHTHUMB:
        return thumbSize;
    case SM_CXEDGE:
    case SM_CYEDGE:
        return edgeWidth;
    default:
        return 0;
    }
}

BOOL SystemParametersInfoW(UINT action, UINT size, void* data, UINT /*update*/)
{
    auto* const metrics = static_cast<NONCLIENTMETRICSW*>(data);
    if (action != SPI_GETNONCLIENTMETRICS || metrics == nullptr ||
        (metrics->cbSize != sizeWithPadding && metrics->cbSize != sizeWithoutPadding) ||
        size < metrics->cbSize)
        return FALSE;
    metrics->lfCaptionFont = metrics->lfSmCaptionFont = metrics->lfMenuFont = metrics->lfStatusFont =
        metrics->lfMessageFont = DesktopFont();
    return TRUE;
}

BOOL GetVersionExW(OSVERSIONINFOW* version)
{
    *version = {version->dwOSVersionInfoSize, 10, 0, 0, ntPlatform, {}};
    return TRUE;
}
