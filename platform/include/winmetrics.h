// The metrics and fonts of the desktop, and its version. The bodies are in platform/user.
#pragma once

#include <wingdi.h>

constexpr int SM_CXSCREEN = 0;
constexpr int SM_CYSCREEN = 1;
constexpr int SM_CXVSCROLL = 2;
constexpr int SM_CYHSCROLL = 3;
constexpr int SM_CYVTHUMB = 9;
constexpr int SM_CXHTHUMB = 10;
constexpr int SM_CXEDGE = 45;
constexpr int SM_CYEDGE = 46;

// 0 for any other metric.
int GetSystemMetrics(int index);

struct NONCLIENTMETRICSW {
    UINT cbSize;
    int iBorderWidth;
    int iScrollWidth;
    int iScrollHeight;
    int iCaptionWidth;
    int iCaptionHeight;
    LOGFONTW lfCaptionFont;
    int iSmCaptionWidth;
    int iSmCaptionHeight;
    LOGFONTW lfSmCaptionFont;
    int iMenuWidth;
    int iMenuHeight;
    LOGFONTW lfMenuFont;
    LOGFONTW lfStatusFont;
    LOGFONTW lfMessageFont;
    int iPaddedBorderWidth;
};
static_assert(sizeof(NONCLIENTMETRICSW) == 504);

constexpr UINT SPI_GETNONCLIENTMETRICS = 41;

// Supports SPI_GETNONCLIENTMETRICS alone, and of that the desktop's fonts. The structure has 504 bytes, or
// 500 without its last member.
BOOL SystemParametersInfoW(UINT action, UINT size, void* data, UINT update);

struct OSVERSIONINFOW {
    DWORD dwOSVersionInfoSize;
    DWORD dwMajorVersion;
    DWORD dwMinorVersion;
    DWORD dwBuildNumber;
    DWORD dwPlatformId;
    WCHAR szCSDVersion[128];
};
BOOL GetVersionExW(OSVERSIONINFOW* version); // 10.0
