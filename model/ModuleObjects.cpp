// The module's objects with static storage, in one source: they are constructed in this order and destroyed
// in the reverse order. The colour messages come before them, the application object after them, as their
// objects are linked before and after this one.
#include "Host.h"
#include "Language.h"
#include "StyleAtlas.h"

k_GlossaW g_Language;
k_StyleAtlas g_StyleAtlas;
CString g_RegistryPath;
CString g_ApplicationName;
