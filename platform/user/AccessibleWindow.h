// A window and its parts for screen readers.
#pragma once

#include <QAccessibleWidget>
#include <QHash>

class Window;

// The objects of the children of another that aren't widgets, each made when it is first asked for and
// deleted with that other. Qt keeps them by numbers of its own.
template <class Key> class AccessibleChildren
{
public:
    AccessibleChildren() = default;
    AccessibleChildren(const AccessibleChildren&) = delete;
    AccessibleChildren& operator=(const AccessibleChildren&) = delete;
    ~AccessibleChildren()
    {
        for (const QAccessible::Id id : m_ids)
            QAccessible::deleteAccessibleInterface(id);
    }

    // make gives a std::unique_ptr.
    template <class Make> QAccessibleInterface* At(const Key& key, const Make& make)
    {
        const auto found = m_ids.constFind(key);
        if (found != m_ids.constEnd())
            return QAccessible::accessibleInterface(*found);
        // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks): Qt owns it from here on
        const QAccessible::Id id = QAccessible::registerAccessibleInterface(make().release());
        m_ids.insert(key, id);
        return QAccessible::accessibleInterface(id);
    }

private:
    QHash<Key, QAccessible::Id> m_ids;
};

// Named by the attached object, or else by its text. Its children are its parts, where it has any; a press on
// one is a click. For a button a press is its own click.
class AccessibleWindow : public QAccessibleWidget
{
public:
    AccessibleWindow(Window& window, QAccessible::Role role);

    QString text(QAccessible::Text kind) const override;
    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QAccessibleInterface* focusChild() const override;
    QStringList actionNames() const override;
    void doAction(const QString& action) override;

protected:
    // Null once the window is gone.
    Window* Asked() const;

private:
    mutable AccessibleChildren<int> m_parts;
};
