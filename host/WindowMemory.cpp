#include "WindowMemory.h"

#include "Commands.h"

#include <QSettings>
#include <QSplitter>

namespace atlashost
{
namespace
{

constexpr const char* RecentFilesKey = "recentFiles";

// ~/.config/styleatlas/atlas-host.conf
QSettings OpenSettings()
{
    return QSettings{"styleatlas", ProgramName};
}

QString KeyOf(const QWidget& widget)
{
    return "windows/" + widget.objectName();
}

} // namespace

void RestoreWindow(QWidget& window)
{
    const QSettings settings = OpenSettings();
    window.restoreGeometry(settings.value(KeyOf(window)).toByteArray());
    for (QSplitter* const splitter : window.findChildren<QSplitter*>())
        splitter->restoreState(settings.value(KeyOf(*splitter)).toByteArray());
}

void KeepWindow(const QWidget& window)
{
    QSettings settings = OpenSettings();
    settings.setValue(KeyOf(window), window.saveGeometry());
    for (const QSplitter* const splitter : window.findChildren<QSplitter*>())
        settings.setValue(KeyOf(*splitter), splitter->saveState());
}

QByteArrayList KeptRecentFiles()
{
    QByteArrayList paths;
    for (const QVariant& path : OpenSettings().value(RecentFilesKey).toList())
        paths.append(path.toByteArray());
    return paths;
}

void KeepRecentFiles(const QByteArrayList& paths)
{
    QVariantList values;
    for (const QByteArray& path : paths)
        values.append(path);
    OpenSettings().setValue(RecentFilesKey, values);
}

} // namespace atlashost
