// The colour popup: its creation, its messages, and how it closes.
#include "ColorPopup.h"

#include "ColorMessages.h"

#include <commctrl.h>

namespace
{

constexpr int initialSize = 100; // of the window, until the layout is known
constexpr UINT_PTR toolId = 1;
constexpr DWORD firstMajorWithPaddedBorder = 6;
constexpr WORD paletteVersion = 0x300;

// The user's custom colours, kept as long as the module is loaded.
COLORREF g_customColors[] = {0x00000000, 0x00800000, 0x00008000, 0x00808000, 0x00000080, 0x00800080,
                             0x00008080, 0x00C0C0C0, 0x00808080, 0x00FF0000, 0x0000FF00, 0x00FFFF00,
                             0x000000FF, 0x00FF00FF, 0x0000FFFF, 0x00FFFFFF};

// A LOGPALETTE with room for all entries.
struct k_LogPalette {
    WORD Version = paletteVersion;
    WORD Count = k_PaletteSize;
    PALETTEENTRY Entries[k_PaletteSize];
};
static_assert(offsetof(k_LogPalette, Entries) == offsetof(LOGPALETTE, palPalEntry));

LOGFONTW MessageFont()
{
    OSVERSIONINFOW version{sizeof version, 0, 0, 0, 0, {}};
    ::GetVersionExW(&version);
    NONCLIENTMETRICSW metrics{};
    const bool isPadded = version.dwMajorVersion >= firstMajorWithPaddedBorder;
    metrics.cbSize = sizeof metrics - (isPadded ? 0 : sizeof metrics.iPaddedBorderWidth);
    ::SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, metrics.cbSize, &metrics, 0);
    return metrics.lfMessageFont;
}

} // namespace

BEGIN_MESSAGE_MAP(k_ColorPopup, CWnd)
ON_WM_MOUSEMOVE()
ON_WM_LBUTTONUP()
ON_WM_KEYDOWN()
ON_WM_PAINT()
ON_WM_CLOSE()
ON_WM_NCDESTROY()
ON_WM_KILLFOCUS()
ON_WM_ACTIVATEAPP()
ON_WM_QUERYNEWPALETTE()
ON_WM_PALETTECHANGED()
END_MESSAGE_MAP()

// ---- Making the window

k_ColorPopup::k_ColorPopup(CPoint topLeft, COLORREF color, CWnd* owner, LPCTSTR defaultText, LPCTSTR moreText)
{
    Setup();
    m_initialColor = color;
    m_color = color;
    m_owner = owner;
    m_defaultText = defaultText;
    m_moreText = moreText;
    if (CreateAt(topLeft) == FALSE)
        return;
    ComputeLayout();
    AddToolTips();
    m_chosenCell = CellOf(color);
    SetCapture();
    m_ownsItself = TRUE;
}

k_ColorPopup::~k_ColorPopup() = default;

void k_ColorPopup::Setup()
{
    const LOGFONTW font = MessageFont();
    m_font.CreateFontIndirect(&font);

    k_LogPalette palette;
    for (int i = 0; i < m_colorCount; ++i) {
        const COLORREF color = k_Palette[i].Color;
        palette.Entries[i] = {GetRValue(color), GetGValue(color), GetBValue(color), 0};
    }
    m_palette.CreatePalette(reinterpret_cast<LOGPALETTE*>(&palette));
}

BOOL k_ColorPopup::CreateAt(CPoint topLeft)
{
    auto* const background = reinterpret_cast<HBRUSH>(static_cast<UINT_PTR>(COLOR_BTNFACE + 1));
    LPCTSTR const windowClass =
        AfxRegisterWndClass(CS_VREDRAW | CS_HREDRAW | CS_CLASSDC | CS_SAVEBITS, nullptr, background, nullptr);
    return CreateEx(0, windowClass, _T(""), WS_POPUP | WS_VISIBLE, topLeft.x, topLeft.y, initialSize,
                    initialSize, m_owner->GetSafeHwnd(), 0);
}

void k_ColorPopup::AddToolTips()
{
    if (m_toolTip.Create(this, 0) == FALSE)
        return;
    for (int cell = 0; cell < m_colorCount; ++cell) {
        RECT rect;
        CellRect(cell, &rect);
        m_toolTip.AddTool(this, CellText(cell), &rect, toolId);
    }
}

// ---- Messages

BOOL k_ColorPopup::PreTranslateMessage(MSG* pMsg)
{
    // There may be no tooltip window.
    ::SendMessageW(m_toolTip.GetSafeHwnd(), TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(pMsg));
    if (GetCapture() != this)
        SetCapture();
    return CWnd::PreTranslateMessage(pMsg);
}

void k_ColorPopup::OnMouseMove(UINT /*nFlags*/, CPoint point)
{
    const int target = CellUnder(point);
    if (target != CELL_NONE && target != m_hotCell)
        MoveHotCell(target);
    Default();
}

// The click that opened the popup is over, so this button-up ends another click.
void k_ColorPopup::OnLButtonUp(UINT /*nFlags*/, CPoint /*point*/)
{
    Default();
    GetWindowRect(&m_windowRect); // the desktop may have moved it
    const CPoint onScreen(static_cast<LPARAM>(::GetMessagePos()));
    Finish(::PtInRect(&m_windowRect, onScreen) != FALSE ? g_msgSelEndOK : g_msgSelEndChange);
}

void k_ColorPopup::OnKeyDown(UINT nChar, UINT /*nRepCnt*/, UINT /*nFlags*/)
{
    switch (nChar) {
    case VK_ESCAPE:
        m_color = m_initialColor;
        Finish(g_msgSelEndChange);
        return;
    case VK_RETURN:
    case VK_SPACE:
        Finish(g_msgSelEndOK);
        return;
    case VK_DOWN:
    case VK_UP:
    case VK_RIGHT:
    case VK_LEFT:
        MoveHotCell(KeyTarget(nChar));
        break;
    default:
        break;
    }
    Default();
}

void k_ColorPopup::OnKillFocus(CWnd* /*pNewWnd*/)
{
    Default();
    ::ReleaseCapture();
}

void k_ColorPopup::OnActivateApp(BOOL bActive, DWORD /*dwThreadID*/)
{
    Default();
    if (bActive == FALSE)
        Finish(g_msgSelEndChange);
}

BOOL k_ColorPopup::OnQueryNewPalette()
{
    InvalidateRect(nullptr, TRUE);
    return static_cast<BOOL>(Default());
}

void k_ColorPopup::OnPaletteChanged(CWnd* pFocusWnd)
{
    Default();
    if (pFocusWnd != this)
        InvalidateRect(nullptr, TRUE);
}

// By the window manager.
void k_ColorPopup::OnClose()
{
    Finish(g_msgSelEndChange);
}

// While the colour dialog is open, Finish still needs the object and deletes it itself.
void k_ColorPopup::OnNcDestroy()
{
    CWnd::OnNcDestroy();
    if (m_ownsItself != FALSE && m_inColorDialog == FALSE)
        delete this;
}

// ---- Choosing

void k_ColorPopup::MoveHotCell(int cell)
{
    {
        CClientDC dc(this);
        if (m_hotCell != CELL_NONE) {
            const int before = m_hotCell;
            m_hotCell = CELL_NONE;
            PaintCell(&dc, before);
        }
        m_hotCell = cell;
        PaintCell(&dc, cell);
    }
    // The colour of CELL_MORE is known only after its dialog.
    if (cell != CELL_MORE)
        m_color = cell == CELL_DEFAULT ? CLR_DEFAULT : k_Palette[cell].Color;
    m_owner->SendMessage(g_msgSelChange, cell == CELL_MORE ? m_initialColor : m_color, 0);
}

// Re-entered if the application is deactivated while the colour dialog is open; then the outer call destroys
// the window. If the window was destroyed with its owner meanwhile, no message is sent.
void k_ColorPopup::Finish(UINT message)
{
    ::ReleaseCapture();
    if (message != g_msgSelEndChange && m_hotCell == CELL_MORE) {
        m_inColorDialog = TRUE;
        CColorDialog dialog(m_initialColor, CC_FULLOPEN | CC_ANYCOLOR, this);
        dialog.m_cc.lpCustColors = g_customColors;
        if (dialog.DoModal() == IDOK)
            m_color = dialog.GetColor();
        else
            message = g_msgSelEndChange;
        m_inColorDialog = FALSE;
        if (m_hWnd == nullptr) {
            delete this;
            return;
        }
    }
    if (message == g_msgSelEndChange)
        m_color = m_initialColor;
    m_owner->SendMessage(message, m_color, 0);
    if (m_inColorDialog == FALSE)
        DestroyWindow();
}
