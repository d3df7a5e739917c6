// Display.h: the desktop, where there is one.
#pragma once

#include <QApplication>
#include <QSize>

#include <optional>

namespace atlashost
{

// Whether the environment names a display. It can still be one that nobody answers at.
bool HasDisplay();

// From here on the environment names no display, and what the style atlas has to tell goes to standard error.
// For a program that has no application object and no thread yet.
void ForgetDisplay();

// From here on the program ends with a message and the status Failed where Qt would abort it, and Qt is
// silent otherwise: what it warns of, of folders and fonts that are missing, matters little here.
void EndWhereQtWouldAbort();

// The size, or as much of it as the widget's screen has beside what is the desktop's own.
QSize FittingSize(const QWidget& widget, QSize size);

// The application object of a program with windows. It comes before the first of them, and before the first
// call of the style atlas, whose messages then are windows of this program too.
class Desktop
{
public:
    Desktop();

private:
    // The application keeps references to these.
    int m_count = 1;
    char m_name[sizeof "atlas-host"] = "atlas-host";
    char* m_words[2] = {m_name, nullptr};

    std::optional<QApplication> m_application;
};

} // namespace atlashost
