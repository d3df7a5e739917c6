#include "ScrollBar.h"

#include "Control.h"

#include <InputNames.h>
#include <QCoreApplication>
#include <QMouseEvent>
#include <algorithm>
#include <cstdint>
#include <limits>

namespace
{

constexpr int wheelStep = 20; // pixels for each line

struct ActionCode {
    int Action;
    UINT Code;
};
constexpr ActionCode actionCodes[] = {
    {QAbstractSlider::SliderSingleStepSub, SB_LINELEFT},
    {QAbstractSlider::SliderSingleStepAdd, SB_LINERIGHT},
    {QAbstractSlider::SliderPageStepSub, SB_PAGELEFT},
    {QAbstractSlider::SliderPageStepAdd, SB_PAGERIGHT},
};

} // namespace

ScrollBarWindow::ScrollBarWindow(DWORD style, QWidget* parent) : WidgetWindow(Qt::Horizontal, parent)
{
    Style = style;
    setLayoutDirection(Qt::LeftToRight); // positions count from the left
    setSingleStep(wheelStep);
    connect(this, &QAbstractSlider::actionTriggered, this, &ScrollBarWindow::OnAction);
    connect(this, &QAbstractSlider::sliderReleased, this,
            [this] { NotifyScroll(SB_THUMBPOSITION, sliderPosition()); });
}

// Qt has set the slider to the new position, and takes the slider position for the value afterwards.
void ScrollBarWindow::OnAction(int action)
{
    const int position = sliderPosition();
    if (!isSliderDown())
        setSliderPosition(value());
    if (action == SliderMove) {
        NotifyScroll(SB_THUMBTRACK, position);
        if (!isSliderDown())
            End();
    } else if (const auto* const found = std::ranges::find(actionCodes, action, &ActionCode::Action);
               found != std::end(actionCodes)) {
        NotifyScroll(found->Code);
    }
}

ScrollBarWindow* ScrollBarWindow::Beside(const QWidget& widget)
{
    const QList<QWidget*> siblings =
        widget.parentWidget() != nullptr
            ? widget.parentWidget()->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)
            : QList<QWidget*>();
    for (QWidget* const sibling : siblings) {
        if (auto* const bar = dynamic_cast<ScrollBarWindow*>(sibling); bar != nullptr && !bar->isHidden())
            return bar;
    }
    return nullptr;
}

bool ScrollBarWindow::TakeWheel(const QWidget& widget, QWheelEvent& event)
{
    ScrollBarWindow* const bar = IsSideways(event) ? Beside(widget) : nullptr;
    return bar != nullptr && QCoreApplication::sendEvent(bar, &event);
}

void ScrollBarWindow::Reveal(int left, int right)
{
    const int position = std::min(std::max(value(), right - pageStep()), left);
    if (position == value())
        return;
    NotifyScroll(SB_THUMBTRACK, position);
    End();
}

void ScrollBarWindow::NotifyScroll(UINT code, int position)
{
    m_isScrolling = code != SB_ENDSCROLL;
    if (Window* const parent = Parent())
        parent->SendContained(WM_HSCROLL, MAKEWPARAM(code, static_cast<UINT>(position)),
                              reinterpret_cast<LPARAM>(Handle()));
}

void ScrollBarWindow::End()
{
    if (m_isScrolling)
        NotifyScroll(SB_ENDSCROLL);
}

void ScrollBarWindow::paintEvent(QPaintEvent* event)
{
    QStyleOptionSlider option;
    initStyleOption(&option);
    if (!m_pictures.Paint(*this, option))
        WidgetWindow::paintEvent(event);
}

void ScrollBarWindow::mouseReleaseEvent(QMouseEvent* event)
{
    WidgetWindow::mouseReleaseEvent(event);
    End();
}

bool ScrollBarWindow::ScrollInfo(int bar, SCROLLINFO& info) const
{
    if (bar != SB_CTL)
        return false;
    info.nMin = minimum();
    info.nMax = maximum() + std::max(0, pageStep() - 1);
    info.nPage = static_cast<UINT>(pageStep());
    info.nPos = value();
    return true;
}

int ScrollBarWindow::SetScrollInfo(const SCROLLINFO& info)
{
    SCROLLINFO all{};
    ScrollInfo(SB_CTL, all);
    if ((info.fMask & SIF_RANGE) != 0) {
        const bool isRange = info.nMin <= info.nMax;
        all.nMin = isRange ? info.nMin : 0;
        all.nMax = isRange ? info.nMax : 0;
    }
    if ((info.fMask & SIF_PAGE) != 0)
        all.nPage = info.nPage;
    const std::int64_t count = std::int64_t{all.nMax} - all.nMin + 1;
    const auto page = static_cast<int>(
        std::min({std::int64_t{all.nPage}, count, std::int64_t{std::numeric_limits<int>::max()}}));
    setRange(all.nMin, all.nMax - std::max(0, page - 1));
    setPageStep(page);
    if ((info.fMask & SIF_POS) != 0)
        setValue(info.nPos);
    return value();
}

BOOL CScrollBar::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CreateControl(*this, MakeControl<ScrollBarWindow>, {nullptr, dwStyle, rect, pParentWnd, nID});
}
