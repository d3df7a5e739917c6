// What a window without files shows in the place of a plot.
#pragma once

#include <QWidget>

class QAction;

namespace atlashost
{

// Says what can be opened, and has a button for the command that opens files. Fills its parent.
class StartPage : public QWidget
{
public:
    StartPage(QAction& open, QWidget& parent);
};

} // namespace atlashost
