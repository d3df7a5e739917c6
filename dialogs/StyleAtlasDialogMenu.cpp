// The context menu of the style atlas dialog.
#include "StyleAtlasDialog.h"
#include "resource.h"

#include <model/Language.h>

void k_StyleAtlasDialog::OnRightClick(NMHDR* /*pNMHDR*/, LRESULT* pResult)
{
    *pResult = 0;
}

// Loaded and translated each time it opens, so that it follows a change of language.
void k_StyleAtlasDialog::OnContextMenu(CWnd* /*pWnd*/, CPoint point)
{
    CMenu menu;
    if (menu.LoadMenu(IDR_STYLE_ATLAS_MENU) == FALSE)
        return;
    CMenu* const popup = menu.GetSubMenu(0);
    if (popup == nullptr)
        return;
    const int count = popup->GetMenuItemCount();
    for (int position = 0; position < count; ++position) {
        const UINT id = popup->GetMenuItemID(position);
        if (id == 0)
            continue;
        CString text;
        popup->GetMenuString(static_cast<UINT>(position), text, MF_BYPOSITION);
        popup->ModifyMenu(static_cast<UINT>(position), MF_BYPOSITION, id,
                          g_Language.GetUnStrippedText(text, k_LanguageSection, true));
    }
    popup->TrackPopupMenu(TPM_RIGHTBUTTON, point.x, point.y, this);
}

void k_StyleAtlasDialog::OnSetFileSymbols()
{
    m_Atlas.SetFileSymbols(0, k_MaxFileColumns);
    RepaintTree();
}

void k_StyleAtlasDialog::OnSetFileColors()
{
    m_Atlas.SetFileColors(0, k_MaxFileColumns);
    RepaintTree();
}

void k_StyleAtlasDialog::OnSetMainQuantitySymbols()
{
    m_Atlas.SetMainQuantitySymbols();
    RepaintTree();
}

void k_StyleAtlasDialog::OnSetMainQuantityColors()
{
    m_Atlas.SetMainQuantityColors();
    RepaintTree();
}

void k_StyleAtlasDialog::OnExpandAll()
{
    HTREEITEM const caret = GetTreeItem(TVGN_CARET);
    m_ColumnTree.m_Tree.ExpandAll();
    KeepVisible(caret);
}

void k_StyleAtlasDialog::OnCollapseAll()
{
    HTREEITEM const caret = GetTreeItem(TVGN_CARET);
    m_ColumnTree.m_Tree.CollapseAll();
    KeepVisible(caret);
}
