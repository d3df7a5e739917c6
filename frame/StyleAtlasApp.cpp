#include "StyleAtlasApp.h"

#include <Glossa.h>

BEGIN_MESSAGE_MAP(CStyleAtlasApp, CWinApp)
END_MESSAGE_MAP()

CStyleAtlasApp g_App;

CStyleAtlasApp::~CStyleAtlasApp() = default;

BOOL CStyleAtlasApp::InitInstance()
{
    CWinApp::InitInstance();
    InitMFCGlossaExtDLL();
    return TRUE;
}
