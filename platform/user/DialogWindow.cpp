#include "DialogWindow.h"

#include "ControlClass.h"
#include "WindowColors.h"

#include <QFontMetrics>
#include <QStyle>
#include <QtConvert.h>
#include <QtMath>
#include <winmsg.h>

namespace
{

constexpr int unitsAcross = 4;
constexpr int unitsDown = 8;
constexpr int dotsPerInch = 96;
constexpr int pointsPerInch = 72;

constexpr const char16_t* letters = u"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
constexpr int letterCount = 52;

} // namespace

DialogWindow::DialogWindow(const DialogTemplate& source, QWidget* parent) : WidgetWindow(parent)
{
    Style = source.Style;
    Background = COLOR_BTNFACE + 1;
    UseWindowColors(*this);
    setWindowTitle(gdi::ToQString(source.Caption));
    ApplyFont(source);
    setFixedSize(ToPixels(source.Rect).size());
    for (const DialogItem& item : source.Items)
        AddControl(item);
}

// The face of all templates stands for the desktop's font.
void DialogWindow::ApplyFont(const DialogTemplate& source)
{
    if (source.PointSize) {
        QFont chosen = font();
        chosen.setPixelSize(qRound(double(*source.PointSize) * dotsPerInch / pointsPerInch));
        setFont(chosen);
    }
    const QFontMetrics metrics(font());
    const int width = metrics.horizontalAdvance(gdi::ToQString(letters));
    m_baseUnits = {qMax(1, (width / (letterCount / 2) + 1) / 2), qMax(1, metrics.height())};
}

QRect DialogWindow::ToPixels(const DialogRect& units) const
{
    const auto across = [this](int length) {
        return qRound(double(length) * m_baseUnits.width() / unitsAcross);
    };
    const auto down = [this](int length) {
        return qRound(double(length) * m_baseUnits.height() / unitsDown);
    };
    return {across(units.X), down(units.Y), across(qMax<int>(0, units.Width)),
            down(qMax<int>(0, units.Height))};
}

void DialogWindow::AddControl(const DialogItem& item)
{
    const ControlFactory make = ControlClass::Find(item.Class);
    if (make == nullptr)
        return;
    Window& control = make(item.Style, this);
    control.Id = item.Id;
    control.SetText(gdi::ToQString(item.Title));
    control.Widget().setGeometry(QStyle::visualRect(layoutDirection(), rect(), ToPixels(item.Rect)));
    control.Widget().setVisible((item.Style & WS_VISIBLE) != 0);
}

void DialogWindow::reject()
{
    SendContained(WM_COMMAND, MAKEWPARAM(IDCANCEL, BN_CLICKED));
}
