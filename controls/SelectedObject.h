// Selects a pen, a brush, a font or a bitmap into a context for a time.
#pragma once

#include <afxwin.h>

// Selects the object for its own lifetime. Then the previous one is selected again.
template <class Object> class k_SelectedObject
{
public:
    k_SelectedObject(CDC& dc, Object& object) : m_dc(dc), m_previous(dc.SelectObject(&object)) {}
    k_SelectedObject(const k_SelectedObject&) = delete;
    k_SelectedObject& operator=(const k_SelectedObject&) = delete;
    ~k_SelectedObject() { m_dc.SelectObject(m_previous); }

private:
    CDC& m_dc;
    Object* m_previous;
};
