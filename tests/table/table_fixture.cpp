// SPDX-License-Identifier: MIT
#include "table/table_fixture.h"

#include "text/TextLines.h"

#include <QTest>

#include <stdexcept>

int FakeTableDelegate::numberOfRowsInTableView(const TableView& /*tableView*/)
{
    return static_cast<int>(texts.size());
}

CellView FakeTableDelegate::viewForTableColumn(const TableView& /*tableView*/, const TableColumn& tableColumn, int row)
{
    rowsAskedForView.push_back(row);
    const QString text = tableColumn.identifier == u"note" ? texts[row] : QStringLiteral("day %1").arg(row);
    return {text, textColor, spokenText};
}

double FakeTableDelegate::heightOfRow(const TableView& /*tableView*/, int row)
{
    return 17.0 * static_cast<double>(countOfLines(texts[row].toStdString()));
}

void FakeTableDelegate::tableViewSelectionIsChanging(TableView& tableView)
{
    told.append(QStringLiteral("changing %1").arg(tableView.selectedRow()));
}

void FakeTableDelegate::tableViewSelectionDidChange(TableView& tableView)
{
    told.append(QStringLiteral("changed %1").arg(tableView.selectedRow()));
}

void FakeTableDelegate::sortDescriptorsDidChange(TableView& /*tableView*/)
{
    told.append(QStringLiteral("sort"));
}

void FakeTableDelegate::controlTextDidChange(QWidget& field)
{
    told.append(QStringLiteral("typed"));
    const int row = table->rowForView(field);
    texts[row] = dynamic_cast<CellEditor&>(field).text();
    table->noteHeightOfRowChanged(row);
}

void FakeTableDelegate::controlTextDidEndEditing(QWidget& field)
{
    told.append(QStringLiteral("ended ") + dynamic_cast<CellEditor&>(field).text());
}

TableTest::TableTest()
{
    window.resize(400, 300);
    table.setGeometry(0, 0, 400, 250);
    elsewhere.setGeometry(0, 260, 400, 30);
    elsewhere.setFocusPolicy(Qt::StrongFocus);

    TableColumn date;
    date.identifier = QStringLiteral("date");
    date.headerCell = HeaderCell(QStringLiteral("Date"));
    date.width = 100;
    date.sortDescriptorPrototype = SortDescriptor{"date", SortOrder::Ascending};
    table.addColumn(date);
    TableColumn note;
    note.identifier = QStringLiteral("note");
    note.headerCell = HeaderCell(QStringLiteral("Note"));
    note.stretches = true;
    note.editing = TableColumn::Editing::Editable;
    table.addColumn(note);

    delegate.table = &table;
    table.setDelegate(&delegate);
    window.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
}

TableTest::~TableTest()
{
    table.setDelegate(nullptr);
}

void TableTest::showRows(const QStringList& texts)
{
    delegate.texts = texts;
    table.reloadData();
    delegate.told.clear();
}

QStringList TableTest::numberedRows(int count)
{
    QStringList rows;
    for (int row = 0; row < count; ++row) {
        rows.append(QStringLiteral("note %1").arg(row));
    }
    return rows;
}

void TableTest::click(QPoint position, Qt::MouseButton button)
{
    QTest::mouseClick(table.viewport(), button, Qt::NoModifier, position);
}

void TableTest::press(int key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(window.focusWidget() ? window.focusWidget() : &table, static_cast<Qt::Key>(key), modifiers);
}

CellEditor& TableTest::editor() const
{
    auto* const view = qobject_cast<CellEditor*>(table.viewAt(table.editedColumn(), table.editedRow()));
    if (!view) {
        throw std::logic_error("no text is being edited");
    }
    return *view;
}
