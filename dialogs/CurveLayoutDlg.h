// The dialog that edits the style of one curve, or of many at once.
#pragma once

#include "LayoutCombobox.h"

#include <controls/ColorPicker.h>
#include <model/QuantityDesc.h>
#include <optional>

// Shows the style of the first record. A property in which the records differ shows as mixed. OK writes every
// property that has a definite value into all records, and leaves the others to each; anything else writes
// nothing. A number that was typed and isn't chosen in the list is no definite value.
class k_CurveLayoutDlg : public CDialog
{
public:
    explicit k_CurveLayoutDlg(CWnd* pParent = nullptr);

    // The records under edit, which stay the caller's and outlive DoModal. A null shows as a fresh record and
    // is not written. With an empty list there is nothing to show or to write.
    void SetLineDefs(k_LineDefList* pLines);

    // The row that the title names; it stays the caller's and outlives DoModal.
    void SetQuantity(k_QuantityDesc* pQuantity) { m_Quantity = pQuantity; }

    BOOL DestroyWindow() override;
    BOOL OnInitDialog() override;

protected:
    void DoDataExchange(CDataExchange* pDX) override;

    afx_msg void OnDestroy();
    afx_msg void OnClickedOk();
    afx_msg void OnClickedUseSymbolColor();
    afx_msg LRESULT OnColorSelEndOK(WPARAM wParam, LPARAM lParam);

private:
    using k_Number = std::optional<short>; // nothing: the list has no selection

    void ShowTitle();
    void FillLineStyles(short selected);
    void FillSymbolShapes(short selected);
    void FillSymbolFills(short selected);
    void MarkMixed();
    void SetCheckStyle(DWORD style);
    bool IsCoupled(); // the line has the symbol's colour

    void Write(k_LineDef& style, k_Number lineWidth, k_Number symbolSize);

    k_LineDefList m_Lines; // copies of the records as they were at the opening
    int m_LineCount = 0;

public:
    CButton m_UseSymbolColorCheck;
    k_LayoutCombobox m_SymbolShapeCombo; // the data of an item is the dialog's: a picture of the choice
    k_LayoutCombobox m_SymbolFillCombo;
    k_LayoutCombobox m_SymbolSizeCombo;
    k_LayoutCombobox m_LineWidthCombo;
    k_LayoutCombobox m_LineStyleCombo; // as with the shapes

private:
    k_LineDefList* m_SourceLines = nullptr; // null without a record

public:
    k_ColorPicker m_SymbolColorPicker;
    k_ColorPicker m_LineColorPicker;

private:
    k_QuantityDesc* m_Quantity = nullptr;

    DECLARE_MESSAGE_MAP()
};

// Runs the dialog on the records of a list, as k_StyleEditor says. After IDOK the choices stand in the
// records; nulls are passed over. The title names the quantity, if there is one. The parent is the active
// window of the program if none is given.
INT_PTR EditStyles(CWnd* pParent, k_LineDefList* pStyles, k_QuantityDesc* pQuantity);
