// FileList.h: the files that a window shows, one below the other.
#pragma once

#include <QByteArrayList>
#include <QListWidget>

#include <string>
#include <vector>

namespace atlashost
{

// Each file stands with the number of its file column, counted from 1 as the editor's headings count them.
// Where one goes, those below it move up.
class FileList : public QListWidget
{
public:
    explicit FileList(QWidget* parent = nullptr);

    // Paths are in the encoding of the file system, which a text need not hold whole.
    void Add(const QByteArrayList& paths);

    // False where none is selected.
    bool RemoveSelected();

    std::vector<std::string> Paths() const;

private:
    void Number();
};

} // namespace atlashost
