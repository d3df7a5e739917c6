// What goes before the first use of Qt.
#pragma once

#include <QApplication>

#include <optional>

namespace atlashost
{

// Whether the environment names a display, which may still not answer.
bool HasDisplay();

// Removes the display from the environment, so that messages of the style atlas go to standard error. To be
// called before there is an application object or a thread.
void ForgetDisplay();

// From here on the program prints a message and exits with the status Failed where Qt would abort it.
// Warnings of Qt, about missing folders and fonts, are dropped.
void ExitWhereQtWouldAbort();

// The application object of a program with windows, whose dialogs of Qt are in the user's language. To be
// made before the first window, and before the first call of the style atlas, whose messages then are windows
// of this program too.
class QtApplication
{
public:
    QtApplication();

private:
    // The application keeps references to these.
    int m_count = 1;
    char m_name[sizeof "atlas-host"] = "atlas-host";
    char* m_words[2] = {m_name, nullptr};

    std::optional<QApplication> m_application;
};

} // namespace atlashost
