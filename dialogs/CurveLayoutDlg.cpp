#include "CurveLayoutDlg.h"

#include "resource.h"

#include <controls/ColorMessages.h>

namespace
{

// Null if there is no such item.
k_LineDef* PictureOf(CComboBox& box, LRESULT item)
{
    const LRESULT data = box.SendMessage(CB_GETITEMDATA, static_cast<WPARAM>(item));
    return data != CB_ERR ? reinterpret_cast<k_LineDef*>(data) : nullptr;
}

void DeletePictures(CComboBox& box)
{
    const LRESULT count = box.SendMessage(CB_GETCOUNT);
    for (LRESULT item = 0; item < count; ++item) {
        delete PictureOf(box, item);
        box.SendMessage(CB_SETITEMDATA, static_cast<WPARAM>(item), 0);
    }
}

LRESULT Selected(CComboBox& box)
{
    return box.SendMessage(CB_GETCURSEL);
}

std::optional<short> SelectedNumber(CComboBox& box)
{
    const LRESULT item = Selected(box);
    if (item == CB_ERR)
        return std::nullopt;
    CString text;
    box.GetLBText(static_cast<int>(item), text);
    return static_cast<short>(_wtoi(text));
}

} // namespace

BEGIN_MESSAGE_MAP(k_CurveLayoutDlg, CDialog)
ON_WM_DESTROY()
ON_BN_CLICKED(IDOK, k_CurveLayoutDlg::OnClickedOk)
ON_BN_CLICKED(IDC_USE_SYMBOL_COLOR, k_CurveLayoutDlg::OnClickedUseSymbolColor)
ON_REGISTERED_MESSAGE(g_msgSelEndOK, k_CurveLayoutDlg::OnColorSelEndOK)
END_MESSAGE_MAP()

k_CurveLayoutDlg::k_CurveLayoutDlg(CWnd* pParent) : CDialog(IDD_CURVE_LAYOUT, pParent) {}

void k_CurveLayoutDlg::SetLineDefs(k_LineDefList* pLines)
{
    m_LineCount = static_cast<int>(pLines->GetSize());
    if (m_LineCount == 0)
        return;
    m_Lines.Assign(*pLines);
    m_SourceLines = pLines;
}

void k_CurveLayoutDlg::DoDataExchange(CDataExchange* pDX)
{
    DDX_Control(pDX, IDC_SYMBOL_SHAPE, m_SymbolShapeCombo);
    DDX_Control(pDX, IDC_LINE_STYLE, m_LineStyleCombo);
    DDX_Control(pDX, IDC_USE_SYMBOL_COLOR, m_UseSymbolColorCheck);
    DDX_Control(pDX, IDC_SYMBOL_FILL, m_SymbolFillCombo);
    DDX_Control(pDX, IDC_SYMBOL_SIZE, m_SymbolSizeCombo);
    DDX_Control(pDX, IDC_LINE_WIDTH, m_LineWidthCombo);
    DDX_Control(pDX, IDC_SYMBOL_COLOR, m_SymbolColorPicker);
    DDX_Control(pDX, IDC_LINE_COLOR, m_LineColorPicker);
}

// Also where the window is destroyed with its owner, without a call of DestroyWindow.
void k_CurveLayoutDlg::OnDestroy()
{
    DeletePictures(m_LineStyleCombo);
    DeletePictures(m_SymbolShapeCombo);
    CDialog::OnDestroy();
}

// ---- The line's colour and the symbol's

void k_CurveLayoutDlg::SetCheckStyle(DWORD style)
{
    m_UseSymbolColorCheck.SendMessage(BM_SETSTYLE, style, TRUE);
}

bool k_CurveLayoutDlg::IsCoupled()
{
    return m_UseSymbolColorCheck.SendMessage(BM_GETCHECK) == static_cast<LRESULT>(BST_CHECKED);
}

void k_CurveLayoutDlg::OnClickedUseSymbolColor()
{
    if (!IsCoupled())
        return;
    m_LineColorPicker.SetColor(m_SymbolColorPicker.GetColor());
    m_LineColorPicker.SetMixed(FALSE);
    SetCheckStyle(BS_AUTOCHECKBOX);
    m_LineColorPicker.InvalidateRect(nullptr, TRUE);
}

LRESULT k_CurveLayoutDlg::OnColorSelEndOK(WPARAM /*wParam*/, LPARAM lParam)
{
    if (!IsCoupled())
        return 0;
    if (lParam == IDC_SYMBOL_COLOR)
        m_LineColorPicker.SetColor(m_SymbolColorPicker.GetColor());
    else if (lParam == IDC_LINE_COLOR)
        m_UseSymbolColorCheck.SendMessage(BM_SETCHECK, BST_UNCHECKED);
    return 0;
}

// ---- The end

void k_CurveLayoutDlg::OnClickedOk()
{
    const k_Number lineWidth = SelectedNumber(m_LineWidthCombo);
    const k_Number symbolSize = SelectedNumber(m_SymbolSizeCombo);
    CDialog::OnOK();
    if (m_SourceLines == nullptr)
        return;
    for (int i = 0; i < m_LineCount; ++i) {
        if (k_LineDef* const pStyle = m_SourceLines->GetAt(i))
            Write(*pStyle, lineWidth, symbolSize);
    }
}

void k_CurveLayoutDlg::Write(k_LineDef& style, k_Number lineWidth, k_Number symbolSize)
{
    if (const k_LineDef* const picture = PictureOf(m_LineStyleCombo, Selected(m_LineStyleCombo)))
        style.LineStyle = picture->LineStyle;
    if (lineWidth)
        style.LineWidth = *lineWidth;
    if (const k_LineDef* const picture = PictureOf(m_SymbolShapeCombo, Selected(m_SymbolShapeCombo)))
        style.SymbolShape = picture->SymbolShape;
    if (symbolSize)
        style.SymbolSize = *symbolSize;
    if (const LRESULT fill = Selected(m_SymbolFillCombo); fill != CB_ERR)
        style.SymbolFill = static_cast<short>(fill);
    if (m_LineColorPicker.m_mixed == FALSE)
        style.LineColor = m_LineColorPicker.GetColor();
    if (m_SymbolColorPicker.m_mixed == FALSE)
        style.SymbolColor = m_SymbolColorPicker.GetColor();
    style.UseSymbolColor = IsCoupled();
}

INT_PTR EditStyles(CWnd* pParent, k_LineDefList* pStyles, k_QuantityDesc* pQuantity)
{
    k_CurveLayoutDlg dialog(pParent);
    dialog.SetLineDefs(pStyles);
    if (pQuantity != nullptr)
        dialog.SetQuantity(pQuantity);
    return dialog.DoModal();
}
