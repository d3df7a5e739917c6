// The single objects of the module.
#pragma once

#include "StyleAtlasApp.h"

#include <model/Host.h>
#include <model/Language.h>
#include <model/StyleAtlas.h>

AFX_EXT_DATA extern CStyleAtlasApp g_App;
