// SPDX-License-Identifier: MIT
#include "table/TableAccessible.h"

#include "table/TableCellAccessible.h"
#include "table/TableHeaderView.h"
#include "table/TableView.h"

#include <limits>

namespace {

QAccessibleInterface* makeInterface(const QString& /*className*/, QObject* object)
{
    auto* const table = qobject_cast<TableView*>(object);
    return table ? new TableAccessible(*table) : nullptr; // the accessibility cache owns it
}

/// The child index of the cell that represents the selected row.
int spokenChild(const TableView& table)
{
    return (table.selectedRow() + 1) * static_cast<int>(table.tableColumns().size()) + table.spokenColumn();
}

} // namespace

TableAccessible::TableAccessible(TableView& table) : QAccessibleWidget(&table, QAccessible::Table) {}

TableAccessible::~TableAccessible()
{
    forgetCells();
}

void TableAccessible::install()
{
    QAccessible::installFactory(makeInterface);
}

void TableAccessible::tellSelection(TableView& table)
{
    if (!QAccessible::isActive()) {
        return;
    }
    QAccessibleEvent within(&table, QAccessible::SelectionWithin);
    QAccessible::updateAccessibility(&within);
    if (table.selectedRow() < 0) {
        return;
    }
    QAccessibleEvent selection(&table, QAccessible::Selection);
    selection.setChild(spokenChild(table));
    QAccessible::updateAccessibility(&selection);
    tellFocus(table);
}

void TableAccessible::tellFocus(TableView& table)
{
    if (QAccessible::isActive() && table.hasFocus() && table.selectedRow() >= 0) {
        QAccessibleEvent focus(&table, QAccessible::Focus);
        focus.setChild(spokenChild(table));
        QAccessible::updateAccessibility(&focus);
    }
}

void TableAccessible::tellReload(TableView& table)
{
    if (QAccessible::isActive()) {
        QAccessibleTableModelChangeEvent event(&table, QAccessibleTableModelChangeEvent::ModelReset);
        QAccessible::updateAccessibility(&event);
    }
}

TableView& TableAccessible::table() const
{
    return *qobject_cast<TableView*>(object());
}

void TableAccessible::forgetCells()
{
    for (const QAccessible::Id id : std::as_const(m_children)) {
        QAccessible::deleteAccessibleInterface(id);
    }
    m_children.clear();
}

void* TableAccessible::interface_cast(QAccessible::InterfaceType type)
{
    return type == QAccessible::TableInterface ? static_cast<QAccessibleTableInterface*>(this)
                                               : QAccessibleWidget::interface_cast(type);
}

QAccessible::State TableAccessible::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    state.focusable = true;
    return state;
}

// Children

int TableAccessible::childCount() const
{
    const qint64 count = (qint64{rowCount()} + 1) * columnCount();
    return static_cast<int>(std::min<qint64>(count, std::numeric_limits<int>::max()));
}

QAccessibleInterface* TableAccessible::child(int index) const
{
    if (index < 0 || index >= childCount()) {
        return nullptr;
    }
    if (const auto known = m_children.constFind(index); known != m_children.constEnd()) {
        return QAccessible::accessibleInterface(*known);
    }
    const int column = index % columnCount();
    const int row = index / columnCount() - 1;
    QAccessibleInterface* made = nullptr;
    if (row < 0) {
        made = new TableHeaderAccessible(table(), column);
    } else {
        made = new TableCellAccessible(table(), column, row);
    }
    m_children.insert(index,
                      QAccessible::registerAccessibleInterface(made)); // owned by the accessibility cache from now on
    return made;
}

int TableAccessible::indexOfChild(const QAccessibleInterface* child) const
{
    if (const auto* const cell = dynamic_cast<const TableCellAccessible*>(child)) {
        return (cell->rowIndex() + 1) * columnCount() + cell->columnIndex();
    }
    const auto* const header = dynamic_cast<const TableHeaderAccessible*>(child);
    return header ? header->column() : -1;
}

QAccessibleInterface* TableAccessible::childAt(int x, int y) const
{
    const QPoint inRows = table().viewport()->mapFromGlobal(QPoint(x, y));
    const int column = table().columnAt(inRows);
    if (column < 0) {
        return nullptr;
    }
    const TableHeaderView& header = table().header();
    if (header.rect().contains(header.mapFromGlobal(QPoint(x, y)))) {
        return child(column);
    }
    return table().viewport()->rect().contains(inRows) ? cellAt(table().rowAt(inRows), column) : nullptr;
}

QAccessibleInterface* TableAccessible::focusChild() const
{
    if (QWidget* const editor = table().viewAt(table().editedColumn(), table().editedRow())) {
        return QAccessible::queryAccessibleInterface(editor);
    }
    return table().hasFocus() ? cellAt(table().selectedRow(), table().spokenColumn()) : nullptr;
}

// The table

int TableAccessible::rowCount() const
{
    return table().numberOfRows();
}

int TableAccessible::columnCount() const
{
    return static_cast<int>(table().tableColumns().size());
}

QAccessibleInterface* TableAccessible::cellAt(int row, int column) const
{
    const bool exists = row >= 0 && row < rowCount() && column >= 0 && column < columnCount();
    return exists ? child((row + 1) * columnCount() + column) : nullptr;
}

QString TableAccessible::rowDescription(int row) const
{
    QStringList names;
    for (int column = 0; column < columnCount(); ++column) {
        if (const QAccessibleInterface* cell = cellAt(row, column)) {
            names.append(cell->text(QAccessible::Name));
        }
    }
    return names.join(QStringLiteral(", "));
}

QString TableAccessible::columnDescription(int column) const
{
    const bool exists = column >= 0 && column < columnCount();
    return exists ? table().tableColumns()[static_cast<std::size_t>(column)].headerCell.title() : QString();
}

// Selection

int TableAccessible::selectedRowCount() const
{
    return table().selectedRow() < 0 ? 0 : 1;
}

int TableAccessible::selectedCellCount() const
{
    return selectedRowCount() * columnCount();
}

QList<int> TableAccessible::selectedRows() const
{
    return selectedRowCount() == 0 ? QList<int>() : QList{table().selectedRow()};
}

QList<QAccessibleInterface*> TableAccessible::selectedCells() const
{
    QList<QAccessibleInterface*> cells;
    for (int column = 0; column < selectedCellCount(); ++column) {
        cells.append(cellAt(table().selectedRow(), column));
    }
    return cells;
}

bool TableAccessible::isRowSelected(int row) const
{
    return row >= 0 && table().selectedRow() == row;
}

bool TableAccessible::selectRow(int row)
{
    table().chooseRow(row);
    return isRowSelected(row);
}

bool TableAccessible::unselectRow(int row)
{
    if (!isRowSelected(row)) {
        return false;
    }
    table().selectRow(-1);
    return true;
}

void TableAccessible::modelChange(QAccessibleTableModelChangeEvent* event)
{
    if (event->modelChangeType() == QAccessibleTableModelChangeEvent::ModelReset) {
        forgetCells();
    }
}
