// SPDX-License-Identifier: MIT
#pragma once

#include "table/TableColumn.h"
#include "table/TableRowView.h"

#include <QString>

#include <memory>

class TableView;
class QWidget;

/// Data source and delegate of a table view. Rows count from 0.
///
/// The table asks for the height of every row at each reload, and for the cells of visible rows while it paints; both
/// must be cheap and must not change the table.
class TableViewDelegate {
public:
    TableViewDelegate() = default;
    TableViewDelegate(const TableViewDelegate&) = delete;
    TableViewDelegate& operator=(const TableViewDelegate&) = delete;
    virtual ~TableViewDelegate() = default;

    virtual int numberOfRowsInTableView(const TableView& tableView) = 0;
    virtual CellView viewForTableColumn(const TableView& tableView, const TableColumn& tableColumn, int row) = 0;

    /// In points.
    virtual double heightOfRow(const TableView& tableView, int row) = 0;
    virtual std::unique_ptr<TableRowView> rowViewForRow(const TableView& tableView, int row);

    /// Whether a cell of an editable column can be edited now; by default it can.
    virtual bool shouldEditTableColumn(const TableView& tableView, const TableColumn& tableColumn, int row);

    /// Called when the user changes the selection by pointer or key, before tableViewSelectionDidChange. The new row is
    /// selected already.
    virtual void tableViewSelectionIsChanging(TableView& tableView);

    /// Called after every change of the selected row, by the user or the program.
    virtual void tableViewSelectionDidChange(TableView& tableView);

    /// Called when the table's sort descriptors have changed; the delegate sorts its rows and reloads the table.
    virtual void sortDescriptorsDidChange(TableView& tableView);

    /// `field` is a CellEditor whose row rowForView still knows. controlTextDidEndEditing is called once at the end of
    /// an edit, before the editor is removed, and at each commitEditing. The delegate may reload the table in either.
    virtual void controlTextDidChange(QWidget& field);
    virtual void controlTextDidEndEditing(QWidget& field);

    /// The name of a cell's text editor for screen readers; by default the column's title.
    virtual QString accessibleEditorName(const TableView& tableView, const TableColumn& tableColumn, int row);
};
