#include "WindowColors.h"

#include <ColorScheme.h>
#include <QEvent>
#include <QWidget>

namespace
{

class PaletteKeeper : public QObject
{
public:
    explicit PaletteKeeper(QWidget& window) : QObject(&window), m_window(window)
    {
        SetPalette();
        window.installEventFilter(this);
    }

    bool eventFilter(QObject* /*receiver*/, QEvent* event) override
    {
        if (event->type() == QEvent::ApplicationPaletteChange)
            SetPalette();
        return false;
    }

private:
    // The desktop's own palette is inherited.
    void SetPalette()
    {
        if (gdi::HasOwnPalette())
            m_window.setPalette(gdi::WindowPalette());
        else if (m_window.testAttribute(Qt::WA_SetPalette))
            m_window.setPalette(QPalette());
    }

    QWidget& m_window;
};

} // namespace

void UseWindowColors(QWidget& window)
{
    new PaletteKeeper(window);
}
