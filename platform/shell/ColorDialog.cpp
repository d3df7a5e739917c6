#include <Application.h>
#include <Contain.h>
#include <QColorDialog>
#include <QPointer>
#include <QtConvert.h>
#include <Window.h>
#include <afxwin.h>
#include <algorithm>
#include <array>
#include <span>

namespace
{

constexpr int customCount = 16;
using CustomColors = std::array<QColor, customCount>;

CustomColors QtCustomColors()
{
    CustomColors colors;
    for (int i = 0; i < customCount; ++i)
        colors[static_cast<std::size_t>(i)] = QColorDialog::customColor(i);
    return colors;
}

void SetQtCustomColors(const CustomColors& colors)
{
    for (int i = 0; i < customCount; ++i)
        QColorDialog::setCustomColor(i, colors[static_cast<std::size_t>(i)]);
}

// Qt has one set of custom colours for the whole program, and keeps it in the user's settings. The host's are
// lent to a dialog, with the dialog's own in them, and given back before Qt stores them.
class CustomColorLoan
{
public:
    explicit CustomColorLoan(std::span<COLORREF> own) : m_own(own), m_host(QtCustomColors())
    {
        CustomColors colors = m_host;
        std::ranges::transform(m_own, colors.begin(), gdi::ToQColor);
        SetQtCustomColors(colors);
    }
    CustomColorLoan(const CustomColorLoan&) = delete;
    CustomColorLoan& operator=(const CustomColorLoan&) = delete;
    ~CustomColorLoan()
    {
        const CustomColors colors = QtCustomColors();
        std::transform(colors.begin(), colors.begin() + static_cast<std::ptrdiff_t>(m_own.size()),
                       m_own.begin(), gdi::ToColorRef);
        SetQtCustomColors(m_host);
    }

private:
    std::span<COLORREF> m_own;
    CustomColors m_host;
};

INT_PTR AskUser(HWND owner, COLORREF& color, COLORREF* customColors)
{
    const ApplicationHolder application;
    if (!CanShowWindows())
        return IDCANCEL;
    Window* const window = Window::Of(owner);
    // The dialog goes with its owner if that goes first.
    const QPointer dialog(new QColorDialog(window != nullptr ? &window->Widget() : nullptr));
    dialog->setOption(QColorDialog::DontUseNativeDialog);
    INT_PTR result = IDCANCEL;
    {
        const CustomColorLoan loan(std::span(customColors, customColors != nullptr ? customCount : 0));
        dialog->setCurrentColor(gdi::ToQColor(color));
        if (dialog->exec() == QDialog::Accepted && !dialog.isNull()) {
            color = gdi::ToColorRef(dialog->selectedColor());
            result = IDOK;
        }
    }
    delete dialog;
    return result;
}

} // namespace

CColorDialog::CColorDialog(COLORREF clrInit, DWORD dwFlags, CWnd* pParentWnd)
{
    m_cc.lStructSize = sizeof m_cc;
    m_cc.hwndOwner = pParentWnd != nullptr ? pParentWnd->GetSafeHwnd() : nullptr;
    m_cc.rgbResult = clrInit;
    m_cc.Flags = dwFlags | CC_RGBINIT;
}

// What fails is a dialog that the user has given up.
INT_PTR CColorDialog::DoModal()
{
    COLORREF color = m_cc.rgbResult;
    INT_PTR result = IDCANCEL;
    Contain([&] { result = AskUser(m_cc.hwndOwner, color, m_cc.lpCustColors); });
    if (result == IDOK)
        m_cc.rgbResult = color;
    return result;
}
