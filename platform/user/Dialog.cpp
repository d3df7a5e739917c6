#include "Application.h"
#include "Contain.h"
#include "DialogInit.h"
#include "DialogWindow.h"
#include "ForeignWindow.h"
#include "ResourceFile.h"

#include <QPointer>
#include <afxwin.h>
#include <optional>
#include <utility>
#include <vector>

namespace
{

constexpr INT_PTR notShown = -1;

std::optional<DialogTemplate> TemplateOf(UINT id)
{
    return ReadDialogTemplate(FindResource(ResourceType::Dialog, static_cast<std::uint16_t>(id)));
}

std::vector<DialogInitEntry> InitEntriesOf(UINT id)
{
    auto entries = ReadDialogInit(FindResource(ResourceType::DialogInit, static_cast<std::uint16_t>(id)));
    return entries ? std::move(*entries) : std::vector<DialogInitEntry>();
}

} // namespace

CDialog::CDialog(UINT nIDTemplate, CWnd* pParentWnd)
    : m_nIDTemplate(nIDTemplate), m_pParentWnd(pParentWnd),
      m_application(std::make_unique<ApplicationHolder>())
{
}

CDialog::~CDialog() = default;

INT_PTR CDialog::DoModal()
{
    const HWND owner = m_pParentWnd != nullptr ? m_pParentWnd->m_hWnd : nullptr;
    QPointer<DialogWindow> window;
    m_isEnded = false;
    m_result = notShown;
    const bool isReady = Contain([&] {
        const std::optional<DialogTemplate> source = TemplateOf(m_nIDTemplate);
        if (!source || !CanShowWindows())
            return;
        window = new DialogWindow(*source, DialogOwner(owner));
        m_result = IDCANCEL;
        SubclassWindow(window->Handle());
        if (OnInitDialog() != FALSE && window)
            window->FocusFirstControl();
    });
    if (!isReady)
        m_result = notShown;
    else if (!m_isEnded && window) {
        const ForeignOwner foreign(*window, owner);
        window->exec();
    }
    DestroyWindow();
    return m_result;
}

void CDialog::EndDialog(int nResult)
{
    m_isEnded = true;
    m_result = nResult;
    if (Window* const window = Window::Of(m_hWnd))
        static_cast<DialogWindow&>(*window).done(nResult);
}

BOOL CDialog::OnInitDialog()
{
    RunInitBlock();
    UpdateData(FALSE);
    return TRUE;
}

// The block adds list items; its message numbers are those of the 16-bit system.
void CDialog::RunInitBlock()
{
    for (const DialogInitEntry& entry : InitEntriesOf(m_nIDTemplate)) {
        if (entry.Message != initAddToComboBox)
            continue;
        ::SendMessageW(::GetDlgItem(m_hWnd, entry.ControlId), CB_ADDSTRING, 0,
                       reinterpret_cast<LPARAM>(entry.Text.c_str()));
    }
}

void CDialog::OnOK()
{
    if (UpdateData(TRUE) != FALSE)
        EndDialog(IDOK);
}

void CDialog::OnCancel()
{
    EndDialog(IDCANCEL);
}

BOOL CDialog::OnCommand(WPARAM wParam, LPARAM lParam)
{
    if (CWnd::OnCommand(wParam, lParam) != FALSE)
        return TRUE;
    if (HIWORD(wParam) != BN_CLICKED)
        return FALSE;
    if (LOWORD(wParam) == IDOK)
        OnOK();
    else if (LOWORD(wParam) == IDCANCEL)
        OnCancel();
    else
        return FALSE;
    return TRUE;
}
