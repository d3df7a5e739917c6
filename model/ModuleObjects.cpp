// The module's static objects, in one source so that they are constructed in this order and destroyed in the
// reverse order. Link order puts the colour messages before them and the application object after them.
#include "Host.h"
#include "Language.h"
#include "StyleAtlas.h"

k_GlossaW g_Language;
k_StyleAtlas g_StyleAtlas;
CString g_RegistryPath;
CString g_ApplicationName;
