#include "QtStartup.h"

#include "Commands.h"
#include "ProgramIcon.h"
#include "Report.h"
#include "Texts.h"

#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include <algorithm>
#include <cstdlib>

namespace atlashost
{
namespace
{

constexpr const char* DisplayVariables[] = {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"};

// The fatal message says only that there is no platform; the reason is in an earlier message of its plugin.
void ExitOnFatal(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    static QString reason;
    if (reason.isEmpty() && (type == QtFatalMsg || QByteArrayView{context.category}.startsWith("qt.qpa")))
        reason = message.section('\n', 0, 0);
    if (type != QtFatalMsg)
        return;
    PrintError(Text("nothing can be drawn: %1", {reason.toStdString()}));
    std::_Exit(Failed);
}

} // namespace

bool HasDisplay()
{
    return std::ranges::any_of(DisplayVariables, [](const char* name) {
        const char* const value = std::getenv(name);
        return value != nullptr && *value != '\0';
    });
}

void ForgetDisplay()
{
    for (const char* const name : DisplayVariables)
        unsetenv(name);
}

void ExitWhereQtWouldAbort()
{
    qInstallMessageHandler(ExitOnFatal);
}

QtApplication::QtApplication()
{
    ExitWhereQtWouldAbort();
    QApplication& application = m_application.emplace(m_count, m_words);
    QApplication::setDesktopFileName(ProgramName);
    QApplication::setWindowIcon(ProgramIcon());
    auto* const texts = new QTranslator{&application};
    if (texts->load(QLocale{}, "qtbase", "_", QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(texts);
}

} // namespace atlashost
