#include <Application.h>
#include <Contain.h>
#include <QColorDialog>
#include <QPointer>
#include <QtConvert.h>
#include <WindowColors.h>
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

// Qt has one set of custom colours for the program, and stores it in the user's settings. During the lifetime
// of this object it contains the dialog's own colours; the host's are restored before Qt stores them.
class CustomColorScope
{
public:
    explicit CustomColorScope(std::span<COLORREF> own) : m_own(own), m_host(QtCustomColors())
    {
        CustomColors colors = m_host;
        std::ranges::transform(m_own, colors.begin(), gdi::ToQColor);
        SetQtCustomColors(colors);
    }
    CustomColorScope(const CustomColorScope&) = delete;
    CustomColorScope& operator=(const CustomColorScope&) = delete;
    ~CustomColorScope()
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
    // The owner may delete the dialog.
    const QPointer dialog(new QColorDialog(DialogOwner(owner)));
    dialog->setOption(QColorDialog::DontUseNativeDialog);
    UseWindowColors(*dialog);
    INT_PTR result = IDCANCEL;
    {
        const CustomColorScope scope(std::span(customColors, customColors != nullptr ? customCount : 0));
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

CColorDialog::CColorDialog(COLORREF clrInit, DWORD /*dwFlags*/, CWnd* pParentWnd)
{
    m_cc.hwndOwner = pParentWnd != nullptr ? pParentWnd->GetSafeHwnd() : nullptr;
    m_cc.rgbResult = clrInit;
}

// A failure counts as IDCANCEL.
INT_PTR CColorDialog::DoModal()
{
    COLORREF color = m_cc.rgbResult;
    INT_PTR result = IDCANCEL;
    Contain([&] { result = AskUser(m_cc.hwndOwner, color, m_cc.lpCustColors); });
    if (result == IDOK)
        m_cc.rgbResult = color;
    return result;
}
