// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessibleWidget>
#include <QHash>

class TableView;

/// What a screen reader knows of a table view: a table whose cells can all be asked for. Cells exist for it only once
/// they are asked for, so a table of a lifetime of rows costs no more than one of a page.
///
/// Children are the column headers, then the cells row by row.
class TableAccessible final : public QAccessibleWidget, public QAccessibleTableInterface {
public:
    explicit TableAccessible(TableView& table);
    TableAccessible(const TableAccessible&) = delete;
    TableAccessible& operator=(const TableAccessible&) = delete;
    ~TableAccessible() override;

    /// From now on table views are given this interface. Cheap to call again.
    static void install();

    /// To be called after the selection moved, after the focus came, and after the rows were replaced.
    /// Nothing happens while no screen reader listens.
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
