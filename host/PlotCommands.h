// The commands for the picture of a plot.
#pragma once

#include <QAction>
#include <QList>
#include <QObject>
#include <QString>

namespace atlashost
{

class PlotView;

// Export, copy, print and zoom, for the view's own context menu and for menus. A part of the view. Results
// go to the window's status bar, errors to a message box too.
class PlotCommands : public QObject
{
public:
    explicit PlotCommands(PlotView& view);

    const QList<QAction*>& ForFiles() const { return m_forFiles; }
    const QList<QAction*>& ForView() const { return m_forView; }

private:
    QAction* MakeAction(const QString& text, const QKeySequence& keys, void (PlotCommands::*command)());

    void Export();
    void Copy();
    void Print();
    void Tell(const QString& text);
    void Warn(const QString& text);

    PlotView& m_view;
    QList<QAction*> m_forFiles;
    QList<QAction*> m_forView;
};

} // namespace atlashost
