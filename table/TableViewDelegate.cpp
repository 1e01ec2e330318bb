// SPDX-License-Identifier: MIT
#include "table/TableViewDelegate.h"

std::unique_ptr<TableRowView> TableViewDelegate::rowViewForRow(const TableView& /*tableView*/, int /*row*/)
{
    return std::make_unique<TableRowView>();
}

bool TableViewDelegate::shouldEditTableColumn(const TableView& /*tableView*/, const TableColumn& /*tableColumn*/,
                                              int /*row*/)
{
    return true;
}

void TableViewDelegate::tableViewSelectionIsChanging(TableView& /*tableView*/) {}

void TableViewDelegate::tableViewSelectionDidChange(TableView& /*tableView*/) {}

void TableViewDelegate::sortDescriptorsDidChange(TableView& /*tableView*/) {}

void TableViewDelegate::controlTextDidChange(QWidget& /*field*/) {}

void TableViewDelegate::controlTextDidEndEditing(QWidget& /*field*/) {}

QString TableViewDelegate::accessibleEditorName(const TableView& /*tableView*/, const TableColumn& tableColumn,
                                                int /*row*/)
{
    return tableColumn.headerCell.title();
}
