// The list of files in a window.
#pragma once

#include <QByteArrayList>
#include <QListWidget>

#include <string>
#include <vector>

namespace atlashost
{

// Shows each file with the number of its file column, counted from 1 as in the headings of the editor. When a
// file is removed, those below it move up.
class FileList : public QListWidget
{
public:
    explicit FileList(QWidget* parent = nullptr);

    // Paths are bytes, in any encoding.
    void Add(const QByteArrayList& paths);

    // False if none is selected.
    bool RemoveSelected();

    std::vector<std::string> Paths() const;

private:
    void Number();
};

} // namespace atlashost
