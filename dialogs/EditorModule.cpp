#include "EditorModule.h"

#include "StyleAtlasDialog.h"

INT_PTR WINAPI RunStyleAtlasEditor(HWND parent)
{
    k_StyleAtlasDialog dialog(CWnd::FromHandle(parent));
    const INT_PTR result = dialog.DoModal();
    if (result == IDOK)
        g_StyleAtlas.Assign(dialog.m_Atlas);
    return result;
}
