// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessibleWidget>
#include <QHash>

class TableView;

/// A table view for screen readers: a table with all its cells. A cell's interface is created only when it is asked
/// for, so a table with a lifetime of rows costs no more than one of a page.
///
/// The children are the column headers, then the cells row by row.
class TableAccessible final : public QAccessibleWidget, public QAccessibleTableInterface {
public:
    explicit TableAccessible(TableView& table);
    TableAccessible(const TableAccessible&) = delete;
    TableAccessible& operator=(const TableAccessible&) = delete;
    ~TableAccessible() override;

    /// Makes all table views use this interface. Calling it again is cheap.
    static void install();

    /// Must be called after the selection moved, after the table got the focus, and after the rows were replaced,
    /// respectively. They do nothing while no screen reader is active.
    static void tellSelection(TableView& table);
    static void tellFocus(TableView& table);
    static void tellReload(TableView& table);

    void* interface_cast(QAccessible::InterfaceType type) override;
    QAccessible::State state() const override;

    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QAccessibleInterface* focusChild() const override;

    QAccessibleInterface* caption() const override { return nullptr; }
    QAccessibleInterface* summary() const override { return nullptr; }
    int rowCount() const override;
    int columnCount() const override;
    QAccessibleInterface* cellAt(int row, int column) const override;
    QString rowDescription(int row) const override;
    QString columnDescription(int column) const override;

    int selectedRowCount() const override;
    int selectedColumnCount() const override { return 0; }
    int selectedCellCount() const override;
    QList<int> selectedRows() const override;
    QList<int> selectedColumns() const override { return {}; }
    QList<QAccessibleInterface*> selectedCells() const override;
    bool isRowSelected(int row) const override;
    bool isColumnSelected(int /*column*/) const override { return false; }
    bool selectRow(int row) override;
    bool selectColumn(int /*column*/) override { return false; }
    bool unselectRow(int row) override;
    bool unselectColumn(int /*column*/) override { return false; }
    void modelChange(QAccessibleTableModelChangeEvent* event) override;

private:
    TableView& table() const;
    void forgetCells();

    mutable QHash<int, QAccessible::Id> m_children; ///< those asked for so far, by child index
};
