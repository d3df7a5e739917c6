// The window of a dialog, created from a template.
#pragma once

#include "DialogTemplate.h"
#include "WidgetWindow.h"

#include <QDialog>

class CDialog;

class DialogWindow : public WidgetWindow<QDialog>
{
public:
    // Creates the controls in the template's order, except those of an unknown class.
    DialogWindow(const DialogTemplate& source, QWidget* parent);

    // Dialog units depend on the template's font.
    QRect ToPixels(const DialogRect& units) const;

    void FocusFirstControl() { focusNextPrevChild(true); }

    // The user pressed Escape or closed the window.
    void reject() override;

private:
    void ApplyFont(const DialogTemplate& source);
    void AddControl(const DialogItem& item);

    QSize m_baseUnits; // pixels, of four units across and eight down
};
