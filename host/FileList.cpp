#include "FileList.h"

#include "FileLimit.h"
#include "WindowText.h"

#include <QFile>
#include <QFileInfo>
#include <QPainter>
#include <QTimer>

#include <algorithm>
#include <utility>

namespace atlashost
{
namespace
{

constexpr int PathRole = Qt::UserRole;
constexpr int HintMargin = 12;

} // namespace

FileList::FileList(std::function<void()> reordered, QWidget* parent)
    : QListWidget{parent}, m_reordered{std::move(reordered)}
{
    setDragDropMode(InternalMove);
    setAccessibleName(WindowText("Files"));
    setSelectionMode(ExtendedSelection);
    setTextElideMode(Qt::ElideMiddle);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

void FileList::Add(const QByteArrayList& paths)
{
    for (const QByteArray& path : paths) {
        auto* const file = new QListWidgetItem{this};
        file->setData(PathRole, path);
        file->setFlags(file->flags() &
                       ~Qt::ItemIsDropEnabled); // files are dropped between others, not on them
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

bool FileList::MoveSelected(Direction direction)
{
    std::vector<int> rows;
    for (const QModelIndex& index : selectedIndexes())
        rows.push_back(index.row());
    std::ranges::sort(rows);
    const int step = direction == Direction::Up ? -1 : 1;
    if (direction == Direction::Down)
        std::ranges::reverse(rows);
    if (rows.empty() || rows.front() + step < 0 || rows.front() + step >= count())
        return false;
    QListWidgetItem* const current = currentItem();
    for (const int row : rows) {
        QListWidgetItem* const file = takeItem(row);
        insertItem(row + step, file);
        file->setSelected(true);
    }
    setCurrentItem(current, QItemSelectionModel::NoUpdate);
    Number();
    return true;
}

std::vector<std::string> FileList::Paths() const
{
    std::vector<std::string> paths;
    paths.reserve(static_cast<std::size_t>(count()));
    for (int row = 0; row < count(); ++row)
        paths.push_back(item(row)->data(PathRole).toByteArray().toStdString());
    return paths;
}

// A file is in the list twice until the base ends the drag.
void FileList::startDrag(Qt::DropActions actions)
{
    const std::vector<std::string> before = Paths();
    QListWidget::startDrag(actions);
    Number();
    if (Paths() != before)
        QTimer::singleShot(0, this, m_reordered);
}

void FileList::paintEvent(QPaintEvent* event)
{
    QListWidget::paintEvent(event);
    if (count() > 0)
        return;
    QPainter painter{viewport()};
    painter.setPen(palette().color(QPalette::PlaceholderText));
    const QRect room = viewport()->rect().adjusted(HintMargin, HintMargin, -HintMargin, -HintMargin);
    painter.drawText(room, Qt::AlignTop | Qt::TextWordWrap,
                     WindowText("The files, each with its number. The number decides the style: drag a file "
                                "to another place to change it."));
}

void FileList::Number()
{
    for (int row = 0; row < count(); ++row) {
        QListWidgetItem& file = *item(row);
        const QFileInfo info{QFile::decodeName(file.data(PathRole).toByteArray())};
        const bool hasStyles = HasStyles(static_cast<std::size_t>(row));
        file.setText(QString::number(row + 1) + "  " + info.fileName());
        file.setToolTip(info.absoluteFilePath() + (hasStyles ? "" : '\n' + WindowText("without a style")));
        file.setForeground(palette().brush(hasStyles ? QPalette::Text : QPalette::PlaceholderText));
    }
}

} // namespace atlashost
