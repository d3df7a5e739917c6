// The dialog that shows and edits the whole style atlas.
#pragma once

#include <controls/ColumnTreeCtrl.h>
#include <model/StyleAtlas.h>

// Works on a copy of the module's atlas. When DoModal returns IDOK, the layout file has been written, and the
// caller takes the copy over. Rows of the tree point into the copy.
class k_StyleAtlasDialog : public CDialog
{
public:
    explicit k_StyleAtlasDialog(CWnd* pParent = nullptr);
    ~k_StyleAtlasDialog() override;

    // Replaces the rows of the tree by those of the atlas.
    void FillTree();

    k_ColumnTreeCtrl m_ColumnTree;
    k_StyleAtlas m_Atlas;
    CFont m_TreeFont;
    CFont m_HeaderFont;
    CString m_LayoutFile; // the path chosen last, empty if none
    CStatic m_FilePathText;

protected:
    void DoDataExchange(CDataExchange* pDX) override;
    BOOL OnInitDialog() override;
    void OnOK() override;

    afx_msg void OnLoad();
    afx_msg void OnSaveAs();
    afx_msg void OnUnitLog();
    afx_msg void OnRightClick(NMHDR* pNMHDR, LRESULT* pResult);
    afx_msg void OnContextMenu(CWnd* pWnd, CPoint point);
    afx_msg void OnSetFileSymbols();
    afx_msg void OnSetFileColors();
    afx_msg void OnSetMainQuantitySymbols();
    afx_msg void OnSetMainQuantityColors();
    afx_msg void OnExpandAll();
    afx_msg void OnCollapseAll();

private:
    void InsertColumns();
    HTREEITEM InsertRow(INT_PTR index, HTREEITEM hParent);
    void ShowFilePath();
    void RepaintTree();
    HTREEITEM GetTreeItem(UINT code) const;
    void KeepVisible(HTREEITEM hItem);

    DECLARE_MESSAGE_MAP()
};
