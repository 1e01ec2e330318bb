// SPDX-License-Identifier: MIT
#include "table/TableCellAccessible.h"

#include "table/TableHeaderView.h"
#include "table/TableView.h"
#include "text/TextCutting.h"

#include <QWindow>

namespace {

constexpr qsizetype spokenLength = 200; ///< UTF-16 units of a cell's text that its name includes

QString cellName(const TableView& table, int column, int row)
{
    const QString title = table.tableColumns()[static_cast<std::size_t>(column)].headerCell.title();
    const CellView cell = table.cellView(column, row);
    const QString start = beginningOf(cell.spokenText.isEmpty() ? cell.text : cell.spokenText, spokenLength).toString();
    return title.isEmpty() ? start : QStringLiteral("%1: %2").arg(title, start);
}

QRect onScreen(const QWidget& widget, const QRect& rect)
{
    return {widget.mapToGlobal(rect.topLeft()), rect.size()};
}

} // namespace

TablePartAccessible::TablePartAccessible(TableView& table, int column) : m_table(&table), m_column(column) {}

QWindow* TablePartAccessible::window() const
{
    return m_table ? m_table->window()->windowHandle() : nullptr;
}

QAccessibleInterface* TablePartAccessible::parent() const
{
    return QAccessible::queryAccessibleInterface(m_table);
}

void* TablePartAccessible::interface_cast(QAccessible::InterfaceType type)
{
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
}

bool TablePartAccessible::hasColumn() const
{
    return m_table && m_column < static_cast<int>(m_table->tableColumns().size());
}

QString TablePartAccessible::headerTitle() const
{
    return hasColumn() ? m_table->tableColumns()[static_cast<std::size_t>(m_column)].headerCell.title() : QString();
}

// The header

QString TableHeaderAccessible::text(QAccessible::Text t) const
{
    return t == QAccessible::Name ? headerTitle() : QString();
}

QRect TableHeaderAccessible::rect() const
{
    return hasColumn() ? onScreen(table()->header(), table()->header().sectionRect(column())) : QRect();
}

QStringList TableHeaderAccessible::actionNames() const
{
    const bool sorts =
        hasColumn() && table()->tableColumns()[static_cast<std::size_t>(column())].sortDescriptorPrototype.has_value();
    return sorts ? QStringList{pressAction()} : QStringList();
}

void TableHeaderAccessible::doAction(const QString& actionName)
{
    if (hasColumn() && actionName == pressAction()) {
        table()->sortByColumn(column());
    }
}

// The cell

TableCellAccessible::TableCellAccessible(TableView& table, int column, int row)
    : TablePartAccessible(table, column), m_row(row)
{
}

bool TableCellAccessible::isValid() const
{
    return hasColumn() && m_row < view()->numberOfRows();
}

QAccessible::State TableCellAccessible::state() const
{
    QAccessible::State state;
    if (!isValid()) {
        state.invalid = true;
        return state;
    }
    state.selectable = true;
    state.focusable = true;
    state.selected = isSelected();
    state.focused = isSelected() && view()->hasFocus() && column() == view()->spokenColumn();
    state.active = state.focused;
    state.editable = view()->canEdit(column(), m_row);
    state.invisible = view()->hiddenRowIndexes().contains(m_row);
    state.offscreen = !view()->rectOfCell(column(), m_row).intersects(view()->viewport()->rect());
    return state;
}

QString TableCellAccessible::text(QAccessible::Text t) const
{
    if (!isValid()) {
        return {};
    }
    switch (t) {
    case QAccessible::Name:
        return cellName(*view(), column(), m_row);
    case QAccessible::Value:
        return view()->cellView(column(), m_row).text;
    default:
        return {};
    }
}

QRect TableCellAccessible::rect() const
{
    return isValid() ? onScreen(*view()->viewport(), view()->rectOfCell(column(), m_row)) : QRect();
}

QWidget* TableCellAccessible::editor() const
{
    return isValid() ? view()->viewAt(column(), m_row) : nullptr;
}

QAccessibleInterface* TableCellAccessible::focusChild() const
{
    return editor() ? QAccessible::queryAccessibleInterface(editor()) : nullptr;
}

QAccessibleInterface* TableCellAccessible::child(int index) const
{
    return index == 0 ? focusChild() : nullptr;
}

int TableCellAccessible::childCount() const
{
    return editor() ? 1 : 0;
}

int TableCellAccessible::indexOfChild(const QAccessibleInterface* child) const
{
    return child && child == focusChild() ? 0 : -1;
}

void* TableCellAccessible::interface_cast(QAccessible::InterfaceType type)
{
    return type == QAccessible::TableCellInterface ? static_cast<QAccessibleTableCellInterface*>(this)
                                                   : TablePartAccessible::interface_cast(type);
}

QStringList TableCellAccessible::actionNames() const
{
    return {pressAction(), setFocusAction()};
}

void TableCellAccessible::doAction(const QString& actionName)
{
    if (!isValid()) {
        return;
    }
    if (actionName == setFocusAction()) {
        view()->setFocus(Qt::OtherFocusReason);
        view()->chooseRow(m_row);
    } else if (actionName == pressAction()) {
        view()->setFocus(Qt::OtherFocusReason);
        view()->chooseRow(m_row);
        view()->editColumn(column(), m_row);
    }
}

bool TableCellAccessible::isSelected() const
{
    return isValid() && view()->selectedRow() == m_row;
}

QList<QAccessibleInterface*> TableCellAccessible::columnHeaderCells() const
{
    QAccessibleInterface* const owner = parent();
    return owner ? QList{owner->child(column())} : QList<QAccessibleInterface*>();
}
