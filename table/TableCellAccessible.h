// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessible>
#include <QPointer>

class TableView;

/// A header or a cell of a table view, for screen readers. It stands for a place rather than its content: it reports
/// what is there when it is asked. It is invalid once the table does not have that place.
class TablePartAccessible : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    TablePartAccessible(TableView& table, int column);

    QObject* object() const override { return nullptr; }
    QWindow* window() const override;
    QAccessibleInterface* parent() const override;
    QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }
    QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    void setText(QAccessible::Text /*t*/, const QString& /*text*/) override {}
    void* interface_cast(QAccessible::InterfaceType type) override;
    QStringList keyBindingsForAction(const QString& /*actionName*/) const override { return {}; }

    int column() const { return m_column; }

protected:
    TableView* table() const { return m_table; }
    bool hasColumn() const;
    QString headerTitle() const;

private:
    QPointer<TableView> m_table;
    int m_column;
};

/// The header of a column; pressing it sorts.
class TableHeaderAccessible final : public TablePartAccessible {
public:
    using TablePartAccessible::TablePartAccessible;

    bool isValid() const override { return hasColumn(); }
    QAccessible::Role role() const override { return QAccessible::ColumnHeader; }
    QAccessible::State state() const override { return {}; }
    QString text(QAccessible::Text t) const override;
    QRect rect() const override;
    QStringList actionNames() const override;
    void doAction(const QString& actionName) override;
};

/// A cell. Its name is the column's title and the beginning of its text, its value the whole text; pressing it selects
/// its row and starts editing. It says nothing about the row's other cells, since screen readers that read rows read
/// each cell anyway.
class TableCellAccessible final : public TablePartAccessible, public QAccessibleTableCellInterface {
public:
    TableCellAccessible(TableView& table, int column, int row);

    bool isValid() const override;
    QAccessible::Role role() const override { return QAccessible::Cell; }
    QAccessible::State state() const override;
    QString text(QAccessible::Text t) const override;
    QRect rect() const override;
    QAccessibleInterface* focusChild() const override;
    QAccessibleInterface* child(int index) const override;
    int childCount() const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    QStringList actionNames() const override;
    void doAction(const QString& actionName) override;

    bool isSelected() const override;
    QList<QAccessibleInterface*> columnHeaderCells() const override;
    QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }
    int columnIndex() const override { return column(); }
    int rowIndex() const override { return m_row; }
    int columnExtent() const override { return 1; }
    int rowExtent() const override { return 1; }
    QAccessibleInterface* table() const override { return parent(); }

private:
    TableView* view() const { return TablePartAccessible::table(); }
    QWidget* editor() const;

    int m_row;
};
