// The class framework's modal dialog.
#pragma once

#include <afxwnd.h>
#include <memory>

class ApplicationHolder;

// The window is created from a dialog template of the module, and exists while DoModal runs. A program
// without an application object has one during the lifetime of the dialog object, so that fonts and metrics
// are available before.
class CDialog : public CWnd
{
public:
    explicit CDialog(UINT nIDTemplate, CWnd* pParentWnd = nullptr);
    ~CDialog() override;

    // Shows the dialog and gives the argument of EndDialog; -1 without a display, template or memory, and if
    // OnInitDialog threw. The parent takes no input meanwhile. An exception of a handler ends with its
    // message, and the dialog stays open.
    virtual INT_PTR DoModal();

    // Ends the modal loop. The window exists until DoModal returns.
    void EndDialog(int nResult);

    // Called when all controls exist, before the dialog is shown. Runs the template's init block and the data
    // exchange. TRUE gives the focus to the first control.
    virtual BOOL OnInitDialog();

protected:
    virtual void OnOK();     // runs the data exchange to the members, and ends with IDOK
    virtual void OnCancel(); // ends with IDCANCEL

    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;

    UINT m_nIDTemplate;
    CWnd* m_pParentWnd;

private:
    friend class DialogWindow;

    void RunInitBlock();

    bool m_isEnded = false;
    int m_result = 0;
    std::unique_ptr<ApplicationHolder> m_application;
};
