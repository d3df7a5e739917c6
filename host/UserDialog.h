// Asks for the user whose settings the style atlas is to use.
#pragma once

#include <QString>

class QWidget;

namespace atlashost
{

struct UserSettings {
    QString root;   // of the user, below HKEY_USERS
    QString subKey; // below the root
};

// The settings that a host of this name begins with. Throws std::runtime_error if they can't be found out.
UserSettings FirstSettings(const QString& hostName);

// Lets the user change the settings in a dialog above the window. False, and nothing is changed, after
// Cancel.
bool AskForSettings(QWidget* parent, UserSettings& settings);

} // namespace atlashost
