// The texts of Qt's own dialogs and menus.
#pragma once

class QCoreApplication;

// Has Qt speak the first of the user's languages in which its catalogue of widgets is installed, as long as
// the application object exists; English without one. The languages are those of UserLanguages.h.
void LoadQtTexts(QCoreApplication& application);
