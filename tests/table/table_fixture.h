// SPDX-License-Identifier: MIT
#pragma once

#include "table/CellEditor.h"
#include "table/TableView.h"
#include "table/TableViewDelegate.h"

#include <QStringList>
#include <QWidget>
#include <gtest/gtest.h>

#include <vector>

/// Rows of one text each, 17 points a line, as the notes table has them. Writes down what it is told.
class FakeTableDelegate : public TableViewDelegate {
public:
    QStringList texts;
    QColor textColor;
    QString spokenText;
    QStringList told; ///< in order: "changing 2", "changed 2", "sort", "typed", "ended abc"
    std::vector<int> rowsAskedForView;

    int numberOfRowsInTableView(const TableView& tableView) override;
    CellView viewForTableColumn(const TableView& tableView, const TableColumn& tableColumn, int row) override;
    double heightOfRow(const TableView& tableView, int row) override;
    void tableViewSelectionIsChanging(TableView& tableView) override;
    void tableViewSelectionDidChange(TableView& tableView) override;
    void sortDescriptorsDidChange(TableView& tableView) override;
    void controlTextDidChange(QWidget& field) override;
    void controlTextDidEndEditing(QWidget& field) override;

    TableView* table = nullptr; ///< whose row heights change while text is typed
};

inline constexpr int dateColumn = 0;
inline constexpr int noteColumn = 1;

/// A window of 400 x 300 points with a table in it (column "date" of 100 points, column "note" over the rest, editable)
/// and a plain text field below it that can take the keys.
class TableTest : public ::testing::Test {
protected:
    TableTest();
    ~TableTest() override;

    void showRows(const QStringList& texts);
    static QStringList numberedRows(int count);

    QPoint middleOf(int column, int row) const { return table.rectOfCell(column, row).center(); }
    void click(QPoint position, Qt::MouseButton button = Qt::LeftButton);
    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

    /// Fails the test when no text is being edited.
    CellEditor& editor() const;

    FakeTableDelegate delegate;
    QWidget window;
    TableView table{&window};
    QWidget elsewhere{&window};
};
