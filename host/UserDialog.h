// UserDialog.h: asks whose settings the style atlas is to use.
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

// Shows the settings above the window for the user to change. False, and nothing changed, where the user
// cancels.
bool AskForSettings(QWidget* parent, UserSettings& settings);

} // namespace atlashost
