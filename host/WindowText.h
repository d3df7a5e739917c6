// The texts of the program in the user's language, for windows.
#pragma once

#include "Texts.h"

#include <QString>

namespace atlashost
{

// As in Texts.h.
inline QString WindowText(const char* english, const QString& argument = {})
{
    return QString::fromStdString(Text(english, {argument.toStdString()}));
}

} // namespace atlashost
