// The class framework's modal dialog.
#pragma once

#include <afxwnd.h>
#include <memory>

class ApplicationHolder;

// Made from a dialog template of the module, as long as DoModal runs. Where the program has no application
// object, one is there as long as the dialog object, so that fonts and metrics can be asked for before.
class CDialog : public CWnd
{
public:
    explicit CDialog(UINT nIDTemplate, CWnd* pParentWnd = nullptr);
    ~CDialog() override;

    // Shows the dialog and gives what EndDialog was given; -1 where it can't be shown, for want of a display,
    // a template or memory, or because OnInitDialog threw. The parent, if there is one, takes no input
    // meanwhile. What a handler throws ends with its message, and the dialog stays.
    virtual INT_PTR DoModal();

    // Ends the modal loop; the window stands until DoModal returns.
    void EndDialog(int nResult);

    // Called when all controls stand and nothing is shown yet. Carries out the template's init block and the
    // data exchange; true for the focus to go to the first control.
    virtual BOOL OnInitDialog();

protected:
    virtual void OnOK();     // data exchange to the members, and IDOK
    virtual void OnCancel(); // IDCANCEL

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
