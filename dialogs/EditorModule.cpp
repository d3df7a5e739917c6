#include "EditorModule.h"

#include "StyleAtlasDialog.h"

#include <utility>

INT_PTR WINAPI RunStyleAtlasEditor(HWND parent)
{
    k_StyleAtlasDialog dialog(CWnd::FromHandle(parent));
    const INT_PTR result = dialog.DoModal();
    if (result == IDOK)
        g_StyleAtlas.Assign(std::move(dialog.m_Atlas));
    return result;
}
