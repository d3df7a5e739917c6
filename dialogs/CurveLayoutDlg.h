// The dialog that edits the style of one curve or of several at once.
#pragma once

#include "LayoutCombobox.h"

#include <controls/ColorPicker.h>
#include <model/QuantityDesc.h>
#include <optional>

// Shows the style of the first record; a property in which the records differ shows as mixed. OK writes every
// property with a definite value into all records and leaves the others unchanged; any other way to close the
// dialog writes nothing. A typed number that isn't selected in the list is not definite.
class k_CurveLayoutDlg : public CDialog
{
public:
    explicit k_CurveLayoutDlg(CWnd* pParent = nullptr);

    // The records to edit, which stay the caller's and outlive DoModal. A null shows as a default record and
    // is not written. With an empty list there is nothing to show or to write.
    void SetLineDefs(k_LineDefList* pLines);

    // The row named in the title. It stays the caller's and outlives DoModal.
    void SetQuantity(k_QuantityDesc* pQuantity) { m_Quantity = pQuantity; }

    BOOL OnInitDialog() override;

protected:
    void DoDataExchange(CDataExchange* pDX) override;

    afx_msg void OnDestroy();
    afx_msg void OnClickedOk();
    afx_msg void OnClickedUseSymbolColor();
    afx_msg LRESULT OnColorSelEndOK(WPARAM wParam, LPARAM lParam);

private:
    using k_Number = std::optional<short>; // empty: the list has no selection

    void ShowTitle();
    void FillLineStyles(short selected);
    void FillSymbolShapes(short selected);
    void FillSymbolFills(short selected);
    void MarkMixed();
    void SetCheckStyle(DWORD style);
    bool IsCoupled(); // the line uses the symbol's colour

    void Write(k_LineDef& style, k_Number lineWidth, k_Number symbolSize);

    k_LineDefList m_Lines; // copies of the records as they were at the start
    int m_LineCount = 0;

public:
    CButton m_UseSymbolColorCheck;
    k_LayoutCombobox m_SymbolShapeCombo; // item data: a record to draw, owned by the dialog
    k_LayoutCombobox m_SymbolFillCombo;
    k_LayoutCombobox m_SymbolSizeCombo;
    k_LayoutCombobox m_LineWidthCombo;
    k_LayoutCombobox m_LineStyleCombo; // item data: as above

private:
    k_LineDefList* m_SourceLines = nullptr; // null if there is no record

public:
    k_ColorPicker m_SymbolColorPicker;
    k_ColorPicker m_LineColorPicker;

private:
    k_QuantityDesc* m_Quantity = nullptr;

    DECLARE_MESSAGE_MAP()
};

// Runs the dialog on the records of a list: see k_StyleEditor. After IDOK the choices are in the records;
// nulls are skipped. The title names the quantity, if there is one. Without a parent, the active window of
// the program is the parent.
INT_PTR EditStyles(CWnd* pParent, k_LineDefList* pStyles, k_QuantityDesc* pQuantity);
