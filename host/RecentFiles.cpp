#include "RecentFiles.h"

#include "WindowMemory.h"
#include "WindowText.h"

#include <QFile>
#include <QFileInfo>

#include <utility>

namespace atlashost
{
namespace
{

// "&1  /home/user/may.csv": the number is the access key.
QString Entry(qsizetype number, const QByteArray& path)
{
    return '&' + QString::number(number) + "  " + QFile::decodeName(path).replace('&', "&&");
}

} // namespace

RecentFiles::RecentFiles(std::function<void(const QByteArrayList& paths)> open,
                         std::function<void(const QString& message)> warn, QWidget* parent)
    : QMenu{WindowText("Open re&cent"), parent}, m_open{std::move(open)}, m_warn{std::move(warn)}
{
    // Another window may have changed the list.
    connect(this, &QMenu::aboutToShow, this, [this] { Show(KeptRecentFiles()); });
    Show(KeptRecentFiles());
}

void RecentFiles::Add(const QByteArrayList& paths)
{
    QByteArrayList recent = KeptRecentFiles();
    for (const QByteArray& path : paths) {
        const QFileInfo file{QFile::decodeName(path)};
        if (!file.isFile())
            continue;
        const QByteArray absolute = QFile::encodeName(file.absoluteFilePath());
        recent.removeAll(absolute);
        recent.prepend(absolute);
    }
    recent.resize(std::min(recent.size(), MaxFiles));
    KeepRecentFiles(recent);
    Show(recent);
}

void RecentFiles::Show(const QByteArrayList& paths)
{
    clear();
    for (qsizetype i = 0; i < paths.size(); ++i)
        addAction(Entry(i + 1, paths[i]), this, [this, path = paths[i]] { Choose(path); });
    if (paths.empty())
        addAction(WindowText("No files yet"))->setEnabled(false);
    addSeparator();
    QAction* const clearList = addAction(WindowText("&Clear list"), this, [this] {
        KeepRecentFiles({});
        Show({});
    });
    clearList->setEnabled(!paths.empty());
}

void RecentFiles::Choose(const QByteArray& path)
{
    const QString name = QFile::decodeName(path);
    if (QFileInfo{name}.isFile()) {
        m_open({path});
        return;
    }
    QByteArrayList rest = KeptRecentFiles();
    rest.removeAll(path);
    KeepRecentFiles(rest);
    Show(rest);
    m_warn(WindowText("%1 is no longer there. It has been taken off the list of recent files.", name));
}

} // namespace atlashost
