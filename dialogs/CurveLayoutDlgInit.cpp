// The initial contents of the curve style dialog.
#include "CurveLayoutDlg.h"
#include "TranslateChild.h"

#include <controls/StyleWords.h>
#include <memory>
#include <model/Language.h>
#include <model/StyleNames.h>
#include <utility>

namespace
{

// Adds an item with a picture and returns its index. OnDestroy deletes the picture.
LRESULT AddPicture(CComboBox& box, int position, LPCTSTR name, std::unique_ptr<k_LineDef> picture)
{
    const LRESULT item =
        box.SendMessage(CB_INSERTSTRING, static_cast<WPARAM>(position), reinterpret_cast<LPARAM>(name));
    const LRESULT result =
        box.SendMessage(CB_SETITEMDATA, static_cast<WPARAM>(item), reinterpret_cast<LPARAM>(picture.get()));
    if (result != CB_ERR)
        static_cast<void>(picture.release());
    return item;
}

void Select(CComboBox& box, LRESULT item)
{
    box.SendMessage(CB_SETCURSEL, static_cast<WPARAM>(item));
}

// Selects the first item that begins with the number's digits: 1 selects 10 if there is no 1.
LRESULT SelectNumber(CComboBox& box, int number)
{
    CString text;
    text.Format(_T("%d"), number);
    return box.SendMessage(CB_SELECTSTRING, static_cast<WPARAM>(CB_ERR),
                           reinterpret_cast<LPARAM>(text.GetString()));
}

} // namespace

BOOL k_CurveLayoutDlg::OnInitDialog()
{
    CDialog::OnInitDialog();
    ::EnumChildWindows(m_hWnd, &TranslateChildProc, 0);
    ShowTitle();
    if (m_Lines.IsEmpty())
        return FALSE;

    const k_LineDef& first = *m_Lines.GetAt(0);
    FillLineStyles(first.LineStyle);
    FillSymbolShapes(first.SymbolShape);
    SelectNumber(m_SymbolSizeCombo, first.SymbolSize);
    FillSymbolFills(first.SymbolFill);
    Select(m_LineWidthCombo, SelectNumber(m_LineWidthCombo, first.LineWidth));
    m_SymbolColorPicker.SetName(g_Language.GetUnStrippedText(_T("Symbol colour"), k_LanguageSection, true));
    m_LineColorPicker.SetName(g_Language.GetUnStrippedText(_T("Line colour"), k_LanguageSection, true));
    m_LineColorPicker.SetColor(first.LineColor);
    m_SymbolColorPicker.SetColor(first.SymbolColor);
    m_UseSymbolColorCheck.SendMessage(BM_SETCHECK, first.UseSymbolColor ? BST_CHECKED : BST_UNCHECKED);
    MarkMixed();
    if (m_LineCount > 1)
        SetCheckStyle(BS_AUTO3STATE);
    return TRUE;
}

void k_CurveLayoutDlg::ShowTitle()
{
    CString title;
    GetWindowText(title);
    const CString label = m_Quantity != nullptr ? m_Quantity->GetLabel() : CString();
    if (!label.IsEmpty()) {
        title += _T(": ");
        title += label;
    }
    SetWindowText(title);
}

void k_CurveLayoutDlg::FillLineStyles(short selected)
{
    m_LineStyleCombo.SetDrawSymbol(false);
    LRESULT found = CB_ERR;
    for (int i = 0; i < k_LineStyleCount; ++i) {
        auto picture = std::make_unique<k_LineDef>();
        picture->LineStyle = k_LineStyles[i].LineStyle;
        const LRESULT item = AddPicture(m_LineStyleCombo, i, k_LineStyles[i].Name, std::move(picture));
        if (k_LineStyles[i].LineStyle == selected)
            found = item;
    }
    Select(m_LineStyleCombo, found);
}

// The pictures differ in the shape only.
void k_CurveLayoutDlg::FillSymbolShapes(short selected)
{
    m_SymbolShapeCombo.SetDrawSymbol(true);
    LRESULT found = CB_ERR;
    for (int i = 0; i < k_SymbolShapeCount; ++i) {
        auto picture = std::make_unique<k_LineDef>();
        picture->LineColor = ::GetSysColor(COLOR_3DLIGHT);
        picture->SymbolShape = static_cast<short>(i);
        const LRESULT item = AddPicture(m_SymbolShapeCombo, i, k_SymbolShapes[i], std::move(picture));
        if (i == selected)
            found = item;
    }
    Select(m_SymbolShapeCombo, found);
}

void k_CurveLayoutDlg::FillSymbolFills(short selected)
{
    for (const TCHAR* const fill : k_SymbolFills) {
        const TCHAR* const name = g_Language.GetUnStrippedText(fill, k_LanguageSection, true);
        m_SymbolFillCombo.SendMessage(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(name));
    }
    Select(m_SymbolFillCombo, selected);
}

// Combo boxes show a mixed property by having no selection, colour pickers by their colour. The check box has
// no mark: it shows the state of the first record.
void k_CurveLayoutDlg::MarkMixed()
{
    m_Lines.UpdateUniformity();
    const std::pair<bool, k_LayoutCombobox*> boxes[] = {
        {m_Lines.SameLineStyle, &m_LineStyleCombo},     {m_Lines.SameLineWidth, &m_LineWidthCombo},
        {m_Lines.SameSymbolShape, &m_SymbolShapeCombo}, {m_Lines.SameSymbolFill, &m_SymbolFillCombo},
        {m_Lines.SameSymbolSize, &m_SymbolSizeCombo},
    };
    for (const auto& [isSame, box] : boxes) {
        if (isSame)
            continue;
        box->SetMixed(1);
        box->SetCueBanner(GetMixedText());
        Select(*box, CB_ERR);
    }
    if (!m_Lines.SameSymbolColor)
        m_SymbolColorPicker.SetMixed(TRUE);
    if (!m_Lines.SameLineColor)
        m_LineColorPicker.SetMixed(TRUE);
}
