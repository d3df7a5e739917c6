#include "TreeTable.h"

#include "Header.h"
#include "ScrollBar.h"

#include <Accessibility.h>
#include <MouseClicks.h>

namespace
{

HeaderWindow* HeaderBeside(const QWidget& tree)
{
    const QObjectList siblings =
        tree.parentWidget() != nullptr ? tree.parentWidget()->children() : QObjectList();
    for (QObject* const sibling : siblings) {
        if (auto* const header = dynamic_cast<HeaderWindow*>(sibling))
            return header;
    }
    return nullptr;
}

} // namespace

TreeTable::TreeTable(TreeWindow& tree) : m_tree(tree), m_header(HeaderBeside(tree)) {}

int TreeTable::ColumnCount() const
{
    return m_header != nullptr ? std::max(1, m_header->count()) : 1;
}

int TreeTable::PartOf(const Cell& cell) const
{
    const auto row = cell.Row != nullptr ? reinterpret_cast<std::intptr_t>(cell.Row->Handle()) : 0;
    return static_cast<int>(row) * ColumnCount() + cell.Column + 1;
}

TreeTable::Cell TreeTable::Selected() const
{
    Window* const parent = m_tree.Parent();
    const int part = parent != nullptr ? accessible::FocusedPart(*parent) : 0;
    if (part == 0)
        return {m_tree.Caret(), 0};
    const auto row = static_cast<std::intptr_t>((part - 1) / ColumnCount());
    return {m_tree.Find(reinterpret_cast<HTREEITEM>(row)), (part - 1) % ColumnCount()};
}

QString TreeTable::NameOf(const Cell& cell) const
{
    Window* const parent = m_tree.Parent();
    const QString name = parent != nullptr ? accessible::NameOf(*parent, PartOf(cell)) : QString();
    return name.isEmpty() && cell.Row != nullptr ? cell.Row->Text() : name;
}

TreeTable::Cell TreeTable::Next(int direction) const
{
    constexpr int firstColumn = 1;
    const Cell from = Selected();
    const bool hasColumns = ColumnCount() > firstColumn;
    const bool isForward = direction > 0;
    TreeItem* const row = m_tree.KeyRow();
    if (!hasColumns)
        return {row, 0};
    if (from.Row != nullptr && from.Column > 0)
        return isForward ? Cell{nullptr, from.Column} : Cell{from.Row, 0};
    if (from.Column > 0)
        return isForward ? Cell{row, 0} : Cell{row, from.Column};
    return isForward && row != nullptr ? Cell{row, firstColumn} : Cell{nullptr, firstColumn};
}

QWidget& TreeTable::ClientOf(const Cell& cell) const
{
    return cell.Row == nullptr && m_header != nullptr ? m_header->Client() : m_tree.Client();
}

// The columns of the tree are where the headings are, except that the header may be scrolled: then the tree
// is moved as far.
QRect TreeTable::ClientPlaceOf(const Cell& cell) const
{
    const int left = m_header != nullptr ? m_header->sectionViewportPosition(cell.Column) : 0;
    const int width = m_header != nullptr ? m_header->sectionSize(cell.Column) : m_tree.viewport()->width();
    if (cell.Row == nullptr)
        return m_header != nullptr ? QRect(left, 0, width, m_header->Client().height()) : QRect();
    const TreeWindow::Places places = m_tree.PlacesOf(*cell.Row);
    if (places.Row.isEmpty())
        return {};
    return cell.Column == 0
               ? places.Label.intersected(QRect(0, places.Label.top(), width, places.Label.height()))
               : QRect(left, places.Row.top(), width, places.Row.height());
}

QRect TreeTable::PlaceOf(const Cell& cell) const
{
    const QRect place = ClientPlaceOf(cell);
    return place.isEmpty() ? QRect() : QRect(ClientOf(cell).mapToGlobal(place.topLeft()), place.size());
}

void TreeTable::SendClicks(const Cell& cell, int count) const
{
    if (ClientPlaceOf(cell).isEmpty())
        return;
    if (cell.Row != nullptr)
        m_tree.scrollToItem(cell.Row);
    const QRect place = ClientPlaceOf(cell);
    if (ScrollBarWindow* const bar = ScrollBarWindow::Beside(m_tree))
        bar->Reveal(place.left(), place.left() + place.width() + m_tree.width() - m_tree.viewport()->width());
    SendMouseClicks(ClientOf(cell), place.center(), count);
}
