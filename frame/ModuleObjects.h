// The single objects of the module.
#pragma once

#include "StyleAtlasApp.h"

#include <model/Host.h>
#include <model/Language.h>
#include <model/StyleAtlas.h>

extern k_StyleAtlas g_StyleAtlas; // the table that answers the host
extern CStyleAtlasApp g_App;
