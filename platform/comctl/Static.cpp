#include "Static.h"

#include "AccessibleTable.h"
#include "Control.h"

#include <Accessibility.h>
#include <QFontMetrics>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <algorithm>

namespace
{

const ControlClass staticClass(u"Static", MakeControl<StaticWindow>);

// Keeps the name if it fits, and the start of what is before it.
QString ShortenPath(const QString& path, const QFontMetrics& metrics, int width)
{
    if (metrics.horizontalAdvance(path) <= width)
        return path;
    const qsizetype separator = std::max(path.lastIndexOf(u'\\'), path.lastIndexOf(u'/'));
    const QString name = path.mid(std::max<qsizetype>(0, separator));
    const int room = width - metrics.horizontalAdvance(name);
    if (separator <= 0 || room < metrics.horizontalAdvance(u'\u2026'))
        return metrics.elidedText(name, Qt::ElideRight, width);
    return metrics.elidedText(path.left(separator), Qt::ElideRight, room) + name;
}

} // namespace

StaticWindow::StaticWindow(DWORD style, QWidget* parent) : WidgetWindow(parent)
{
    Style = style;
}

void StaticWindow::SetText(const QString& text)
{
    WidgetWindow::SetText(text);
    update();
}

QAccessibleInterface* StaticWindow::NewAccessible()
{
    for (QObject* const child : children()) {
        if (auto* const tree = dynamic_cast<TreeWindow*>(child))
            return new AccessibleTable(*this, *tree);
    }
    return new AccessibleWindow(*this, QAccessible::StaticText);
}

// A tree among the children makes it a table.
void StaticWindow::childEvent(QChildEvent* event)
{
    if (event->added())
        accessible::Renew(*this);
}

bool StaticWindow::event(QEvent* event)
{
    return dynamic_cast<QMouseEvent*>(event) == nullptr && WidgetWindow::event(event);
}

int StaticWindow::TextFlags() const
{
    constexpr int start = Qt::AlignLeft | Qt::AlignTop;
    if (ShowsPath())
        return start | Qt::TextSingleLine;
    const bool wraps = (Style & SS_TYPEMASK) != SS_LEFTNOWORDWRAP;
    const bool underlines = style()->styleHint(QStyle::SH_UnderlineShortcut, nullptr, this) != 0;
    return start | (underlines ? Qt::TextShowMnemonic : Qt::TextHideMnemonic) |
           (wraps ? Qt::TextWordWrap : Qt::TextExpandTabs);
}

void StaticWindow::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    const QString text = ShowsPath() ? ShortenPath(Text(), painter.fontMetrics(), width()) : Text();
    style()->drawItemText(&painter, rect(), TextFlags(), palette(), isEnabled(), text, foregroundRole());
}
