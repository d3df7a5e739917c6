// The style atlas dialog, open on a small table, with an editor of styles that only writes down what it is
// given.
#pragma once

#include "Gui.h"

#include <dialogs/StyleAtlasDialog.h>
#include <functional>
#include <model/QuantityDesc.h>
#include <vector>

namespace test
{

// What the editor of styles has been asked for.
struct EditRequest {
    CWnd* Parent = nullptr;
    const void* List = nullptr;
    std::vector<const k_LineDef*> Styles;
    const k_QuantityDesc* Quantity = nullptr;
};
inline std::vector<EditRequest> editRequests;

// Notes what the column tree notifies of.
class AtlasDialog : public k_StyleAtlasDialog
{
public:
    struct Notification {
        HWND From;
        UINT_PTR Id;
        int Code;
    };
    std::vector<Notification> Notifications;

    // Runs a function while the dialog is open, and closes it.
    void RunInside(const std::function<void()>& body);

    HTREEITEM Row(int number) const;                // of those that the tree shows, from the top
    CPoint LabelAt(HTREEITEM row, int x = 3) const; // a point of the row's label, in the tree
    CPoint CellAt(HTREEITEM row, int column) const; // the middle of a cell, in the tree
    k_LineDef* Style(int row, int column) { return m_Atlas.GetRow(row)->GetColumnStyle(column); }

protected:
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
};

// Rows of these levels in the module's table, the quantity of each its number from 1.
void SetTable(std::initializer_list<BYTE> levels, DWORD columns = 4);

} // namespace test
