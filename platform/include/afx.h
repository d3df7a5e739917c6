// The class framework's base: objects, exceptions, strings, files, archives.
#pragma once

#include <afxarchive.h>
#include <afxfile.h>
#include <afxobj.h>
#include <afxstr.h>
#include <windows.h>
