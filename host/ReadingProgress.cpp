#include "ReadingProgress.h"

#include "WindowText.h"

namespace atlashost
{
namespace
{

constexpr int Delay = 500; // milliseconds
constexpr int Unit = 1024; // bytes

} // namespace

ReadingProgress::ReadingProgress(QWidget& parent) : QProgressDialog{{}, WindowText("Cancel"), 0, 1, &parent}
{
    setWindowTitle(parent.windowTitle());
    setWindowModality(Qt::WindowModal);
    setMinimumDuration(Delay);
    setAutoClose(false);
    setAutoReset(false);
    setValue(0);
    connect(this, &QProgressDialog::canceled, this, [this] { m_isCancelled = true; });
}

bool ReadingProgress::Show(const std::string& path, std::size_t done, std::size_t all)
{
    setLabelText(WindowText("Reading %1", QString::fromStdString(path)));
    setMaximum(static_cast<int>(all / Unit) + 1);
    if (!m_isCancelled)
        setValue(static_cast<int>(done / Unit) + 1);
    return !m_isCancelled;
}

} // namespace atlashost
