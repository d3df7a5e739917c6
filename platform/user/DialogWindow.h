// The window of a dialog, made from a template.
#pragma once

#include "DialogTemplate.h"
#include "WidgetWindow.h"

#include <QDialog>

class CDialog;

class DialogWindow : public WidgetWindow<QDialog>
{
public:
    // The window and its controls, in the template's order; a control whose class nobody knows is left out.
    DialogWindow(const DialogTemplate& source, QWidget* parent);

    // What a dialog unit is in pixels: of the template's font.
    QRect ToPixels(const DialogRect& units) const;

    void FocusFirstControl() { focusNextPrevChild(true); }

    // By the user: Escape, or the frame's cross.
    void reject() override;

private:
    void ApplyFont(const DialogTemplate& source);
    void AddControl(const DialogItem& item);

    QSize m_baseUnits; // of four units across and eight down
};
