// SPDX-License-Identifier: MIT
#pragma once

#include "table/TableColumn.h"
#include "table/TableRowView.h"

#include <QString>

#include <memory>

class TableView;
class QWidget;

/// What a table view shows and whom it tells: its data source and delegate in one. Rows count from 0.
///
/// The table asks for the height of every row at each reload and for views of visible rows alone, while it paints; both
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

    /// Whether that cell of an editable column can be edited now; every one, unless it is said otherwise.
    virtual bool shouldEditTableColumn(const TableView& tableView, const TableColumn& tableColumn, int row);

    /// While the user changes the selection by pointer or key, before tableViewSelectionDidChange. The new row is
    /// selected already.
    virtual void tableViewSelectionIsChanging(TableView& tableView);

    /// After every change of the selected row, the user's or the program's.
    virtual void tableViewSelectionDidChange(TableView& tableView);

    /// The table's sort descriptors are new; the delegate sorts its rows and reloads the table.
    virtual void sortDescriptorsDidChange(TableView& tableView);

    /// `field` is a CellEditor, and rowForView still tells its row. The second comes once at the end of an edit, before
    /// the editor goes, and at each commitEditing. The delegate may reload the table in either.
    virtual void controlTextDidChange(QWidget& field);
    virtual void controlTextDidEndEditing(QWidget& field);

    /// What a screen reader calls the editor of a cell's text; the column's title unless told otherwise.
    virtual QString accessibleEditorName(const TableView& tableView, const TableColumn& tableColumn, int row);
};
