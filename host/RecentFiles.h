// The menu of the files that were opened last.
#pragma once

#include <QByteArrayList>
#include <QMenu>

#include <functional>

namespace atlashost
{

// Its list is that of all windows of the program, and outlives them.
class RecentFiles : public QMenu
{
public:
    static constexpr qsizetype MaxFiles = 9;

    // open gets the file that the user has chosen, warn a message if it is no longer there.
    RecentFiles(std::function<void(const QByteArrayList& paths)> open,
                std::function<void(const QString& message)> warn, QWidget* parent);

    // Puts the files that exist at the head of the list. Paths are bytes, in any encoding.
    void Add(const QByteArrayList& paths);

private:
    void Show(const QByteArrayList& paths);
    void Choose(const QByteArray& path);

    const std::function<void(const QByteArrayList&)> m_open;
    const std::function<void(const QString&)> m_warn;
};

} // namespace atlashost
