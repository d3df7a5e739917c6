#include "FileList.h"

#include <QFile>
#include <QFileInfo>

namespace atlashost
{
namespace
{

constexpr int PathRole = Qt::UserRole;

} // namespace

FileList::FileList(QWidget* parent) : QListWidget{parent}
{
    setSelectionMode(ExtendedSelection);
    setTextElideMode(Qt::ElideMiddle);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

void FileList::Add(const QByteArrayList& paths)
{
    for (const QByteArray& path : paths) {
        auto* const file = new QListWidgetItem{this};
        file->setData(PathRole, path);
        file->setToolTip(QFileInfo{QFile::decodeName(path)}.absoluteFilePath());
    }
    Number();
}

bool FileList::RemoveSelected()
{
    const QList<QListWidgetItem*> selected = selectedItems();
    qDeleteAll(selected);
    Number();
    return !selected.empty();
}

std::vector<std::string> FileList::Paths() const
{
    std::vector<std::string> paths;
    paths.reserve(static_cast<std::size_t>(count()));
    for (int row = 0; row < count(); ++row)
        paths.push_back(item(row)->data(PathRole).toByteArray().toStdString());
    return paths;
}

void FileList::Number()
{
    for (int row = 0; row < count(); ++row) {
        const QString name = QFileInfo{QFile::decodeName(item(row)->data(PathRole).toByteArray())}.fileName();
        item(row)->setText(QString::number(row + 1) + "  " + name);
    }
}

} // namespace atlashost
