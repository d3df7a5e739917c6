// How far the reading of files is.
#pragma once

#include <QProgressDialog>

#include <cstddef>
#include <string>

namespace atlashost
{

// Comes up in front of its parent when the reading takes more than half a second. While it is shown, windows
// are painted, and the parent gets no input.
class ReadingProgress : public QProgressDialog
{
public:
    explicit ReadingProgress(QWidget& parent);

    // False from the time on when the user has cancelled the reading.
    bool Show(const std::string& path, std::size_t done, std::size_t all);

private:
    bool m_isCancelled = false;
};

} // namespace atlashost
