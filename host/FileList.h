// The list of files in a window.
#pragma once

#include <QByteArrayList>
#include <QListWidget>

#include <functional>
#include <string>
#include <vector>

namespace atlashost
{

// Shows each file with the number of its file column, counted from 1 as in the headings of the editor. When a
// file is removed, those below it move up. Files can be dragged to another place in the list.
class FileList : public QListWidget
{
public:
    // reordered is called after a drag that has changed the order, when the drag is over.
    explicit FileList(std::function<void()> reordered, QWidget* parent = nullptr);

    // Paths are bytes, in any encoding.
    void Add(const QByteArrayList& paths);

    // False if none is selected.
    bool RemoveSelected();

    // Moves the selected files one place up or down. False if none is selected, or there is no such place.
    enum class Direction { Up, Down };
    bool MoveSelected(Direction direction);

    std::vector<std::string> Paths() const;

protected:
    void startDrag(Qt::DropActions actions) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void Number();

    const std::function<void()> m_reordered;
};

} // namespace atlashost
