#include "StyleAtlasDialog.h"

#include "CurveLayoutDlg.h"
#include "TranslateChild.h"
#include "resource.h"

#include <model/Host.h>
#include <model/Language.h>

BEGIN_MESSAGE_MAP(k_StyleAtlasDialog, CDialog)
ON_BN_CLICKED(IDC_LOAD, k_StyleAtlasDialog::OnLoad)
ON_BN_CLICKED(IDC_SAVE_AS, k_StyleAtlasDialog::OnSaveAs)
ON_BN_CLICKED(IDC_UNIT_LOG, k_StyleAtlasDialog::OnUnitLog)
ON_NOTIFY(NM_RCLICK, IDC_COLUMN_TREE, k_StyleAtlasDialog::OnRightClick)
ON_WM_CONTEXTMENU()
ON_COMMAND(ID_SET_FILE_SYMBOLS, k_StyleAtlasDialog::OnSetFileSymbols)
ON_COMMAND(ID_SET_FILE_COLORS, k_StyleAtlasDialog::OnSetFileColors)
ON_COMMAND(ID_SET_MAIN_QUANTITY_SYMBOLS, k_StyleAtlasDialog::OnSetMainQuantitySymbols)
ON_COMMAND(ID_SET_MAIN_QUANTITY_COLORS, k_StyleAtlasDialog::OnSetMainQuantityColors)
ON_COMMAND(ID_EXPAND_ALL, k_StyleAtlasDialog::OnExpandAll)
ON_COMMAND(ID_COLLAPSE_ALL, k_StyleAtlasDialog::OnCollapseAll)
END_MESSAGE_MAP()

k_StyleAtlasDialog::k_StyleAtlasDialog(CWnd* pParent) : CDialog(IDD_STYLE_ATLAS, pParent)
{
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof(metrics);
    ::SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof(metrics), &metrics, 0);
    m_TreeFont.CreateFontIndirect(&metrics.lfMessageFont);
    m_HeaderFont.CreateFontIndirect(&metrics.lfMessageFont);
    m_Atlas.SetRegistryPath(g_RegistryPath);
    m_ColumnTree.SetStyleEditor(EditStyles);
}

k_StyleAtlasDialog::~k_StyleAtlasDialog() = default;

void k_StyleAtlasDialog::DoDataExchange(CDataExchange* pDX)
{
    DDX_Control(pDX, IDC_COLUMN_TREE, m_ColumnTree);
    DDX_Control(pDX, IDC_FILE_PATH, m_FilePathText);
}

BOOL k_StyleAtlasDialog::OnInitDialog()
{
    CDialog::OnInitDialog();
    ::EnumChildWindows(m_hWnd, TranslateChildProc, 0);
    CString title;
    GetWindowText(title);
    SetWindowText(g_Language.GetUnStrippedText(title, k_LanguageSection, true));

    m_ColumnTree.m_Tree.ModifyStyle(0, TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT);
    m_ColumnTree.m_Tree.SetFont(&m_TreeFont, TRUE);
    m_ColumnTree.m_Header.SetFont(&m_HeaderFont, TRUE);

    m_Atlas.Assign(g_StyleAtlas);
    ShowFilePath();
    InsertColumns();
    FillTree();
    KeepVisible(GetTreeItem(TVGN_ROOT));
    return TRUE;
}

// Writes the table to its file even if nothing was changed.
void k_StyleAtlasDialog::OnOK()
{
    CDialog::OnOK();
    if (!m_Atlas.SetFilePath(m_LayoutFile))
        m_LayoutFile = m_Atlas.FilePath;
    m_Atlas.Save(CString());
}

void k_StyleAtlasDialog::OnUnitLog()
{
    m_Atlas.WriteUnitLog();
}

void k_StyleAtlasDialog::ShowFilePath()
{
    m_FilePathText.SetWindowText(m_Atlas.FilePath);
}

void k_StyleAtlasDialog::RepaintTree()
{
    m_ColumnTree.InvalidateRect(nullptr, TRUE);
}

HTREEITEM k_StyleAtlasDialog::GetTreeItem(UINT code) const
{
    return m_ColumnTree.m_Tree.GetNextItem(nullptr, code);
}

void k_StyleAtlasDialog::KeepVisible(HTREEITEM hItem)
{
    m_ColumnTree.m_Tree.EnsureVisible(hItem);
}
