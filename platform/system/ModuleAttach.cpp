// The entry and exit point of a module, run by the loader when it attaches and detaches the module. Must be
// linked last, so that its static object is constructed last and destroyed first.
#include <afxwin.h>

namespace
{

class ModuleAttach
{
public:
    ModuleAttach()
    {
        const AFX_MAINTAIN_STATE2 state(AfxGetStaticModuleState());
        if (CWinApp* const app = AfxGetApp())
            app->InitInstance();
    }
    ModuleAttach(const ModuleAttach&) = delete;
    ModuleAttach& operator=(const ModuleAttach&) = delete;
    ~ModuleAttach() { AfxGetStaticModuleState()->m_bEnding = true; }
};

const ModuleAttach attach;

} // namespace
