// SPDX-License-Identifier: MIT
#include "support/HeardEvents.h"
#include "table/table_fixture.h"

#include <QAccessible>
#include <QTest>

namespace {

class TableAccessibility : public TableTest {
protected:
    TableAccessibility() { showRows({u"milk"_qs, u"bread\nand butter"_qs, u"eggs"_qs}); }

    QAccessibleInterface* root() { return QAccessible::queryAccessibleInterface(&table); }
    QAccessibleTableInterface* grid() { return root()->tableInterface(); }
};

TEST_F(TableAccessibility, ItIsATableWithAllItsRows)
{
    EXPECT_EQ(root()->role(), QAccessible::Table);
    ASSERT_NE(grid(), nullptr);
    EXPECT_EQ(grid()->rowCount(), 3);
    EXPECT_EQ(grid()->columnCount(), 2);
    EXPECT_EQ(root()->childCount(), 2 + 3 * 2);
    EXPECT_EQ(grid()->cellAt(3, 0), nullptr);
    EXPECT_EQ(grid()->cellAt(0, -1), nullptr);
    EXPECT_EQ(root()->child(8), nullptr);
}

TEST_F(TableAccessibility, ACellTellsItsNameItsPlaceAndItsColumn)
{
    QAccessibleInterface* const cell = grid()->cellAt(1, 1);
    ASSERT_NE(cell, nullptr);
    EXPECT_EQ(cell->role(), QAccessible::Cell);
    EXPECT_EQ(cell->text(QAccessible::Name), u"Note: bread\nand butter"_qs);
    EXPECT_EQ(cell->text(QAccessible::Value), u"bread\nand butter"_qs);
    EXPECT_EQ(cell->text(QAccessible::Description), QString()) << "the cells of a row are said one by one";
    EXPECT_EQ(grid()->rowDescription(1), u"Date: day 1, Note: bread\nand butter"_qs);
    EXPECT_EQ(cell->parent(), root());
    EXPECT_EQ(root()->indexOfChild(cell), 5);
    EXPECT_EQ(root()->child(5), cell);
    const QRect rect = table.rectOfCell(1, 1);
    EXPECT_EQ(cell->rect(), QRect(table.viewport()->mapToGlobal(rect.topLeft()), rect.size()));
    EXPECT_EQ(root()->childAt(cell->rect().center().x(), cell->rect().center().y()), cell);

    QAccessibleTableCellInterface* const place = cell->tableCellInterface();
    ASSERT_NE(place, nullptr);
    EXPECT_EQ(place->rowIndex(), 1);
    EXPECT_EQ(place->columnIndex(), 1);
    EXPECT_EQ(place->table(), root());
    ASSERT_EQ(place->columnHeaderCells().size(), 1);
    EXPECT_EQ(place->columnHeaderCells().first()->role(), QAccessible::ColumnHeader);
    EXPECT_EQ(place->columnHeaderCells().first()->text(QAccessible::Name), u"Note"_qs);
}

TEST_F(TableAccessibility, TheNameOfALongTextIsItsStart)
{
    showRows({QString(100000, u'x')});
    EXPECT_EQ(grid()->cellAt(0, 1)->text(QAccessible::Name), u"Note: "_qs + QString(200, u'x'));
}

TEST_F(TableAccessibility, ACellIsSaidInTheWordsThatItHasForThat)
{
    delegate.spokenText = u"milk, today"_qs;
    EXPECT_EQ(grid()->cellAt(0, 1)->text(QAccessible::Name), u"Note: milk, today"_qs);
    EXPECT_EQ(grid()->cellAt(0, 1)->text(QAccessible::Value), u"milk"_qs);
}

TEST_F(TableAccessibility, AnEditorSaysNothingBeforeItHasTheFocus)
{
    const HeardEvents heard;
    table.editColumn(1, 1);
    const auto ofEditor = std::ranges::find_if(heard.all(), [this](const HeardEvents::Heard& each) {
        return each.object == &editor() && each.type != QAccessible::ObjectShow;
    });
    ASSERT_NE(ofEditor, heard.all().end());
    EXPECT_EQ(ofEditor->type, QAccessible::Focus);
    EXPECT_EQ(ofEditor->name, u"Note"_qs);
}

TEST_F(TableAccessibility, LeavingAnEditSaysTheRow)
{
    table.editColumn(1, 1);
    const HeardEvents heard;
    QTest::keyClick(&editor(), Qt::Key_Escape);
    QCoreApplication::sendPostedEvents();
    const QList<HeardEvents::Heard> focused = heard.ofType(QAccessible::Focus);
    ASSERT_FALSE(focused.isEmpty());
    EXPECT_EQ(focused.last().role, QAccessible::Cell);
    EXPECT_EQ(focused.last().name, u"Note: bread\nand butter"_qs);
}

TEST_F(TableAccessibility, StatesFollowSelectionAndFocus)
{
    table.setFocus();
    table.selectRow(1);
    EXPECT_TRUE(grid()->cellAt(1, 1)->state().selected);
    EXPECT_TRUE(grid()->cellAt(1, 1)->state().focused);
    EXPECT_TRUE(grid()->cellAt(1, 1)->state().editable);
    EXPECT_TRUE(grid()->cellAt(1, 0)->state().selected);
    EXPECT_FALSE(grid()->cellAt(1, 0)->state().focused);
    EXPECT_FALSE(grid()->cellAt(1, 0)->state().editable);
    EXPECT_FALSE(grid()->cellAt(0, 1)->state().selected);
    EXPECT_EQ(root()->focusChild(), grid()->cellAt(1, 1));
    EXPECT_EQ(grid()->selectedRows(), QList<int>{1});
    EXPECT_EQ(grid()->selectedCells().size(), 2);
}

TEST_F(TableAccessibility, PressingACellSelectsAndEditsIt)
{
    QAccessibleInterface* const cell = grid()->cellAt(2, 1);
    cell->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
    EXPECT_EQ(table.selectedRow(), 2);
    EXPECT_TRUE(table.hasFocus());
    EXPECT_EQ(table.editedRow(), -1);
    cell->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(table.editedRow(), 2);
    EXPECT_EQ(cell->childCount(), 1);
    EXPECT_EQ(cell->child(0)->object(), &editor());
    EXPECT_EQ(root()->focusChild(), cell->child(0));
}

TEST_F(TableAccessibility, PressingASortableHeaderSorts)
{
    EXPECT_TRUE(root()->child(1)->actionInterface()->actionNames().isEmpty());
    root()->child(0)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(table.sortDescriptors(), (std::vector<SortDescriptor>{{"date", SortOrder::Ascending}}));
}

TEST_F(TableAccessibility, AReaderCanSelectRows)
{
    EXPECT_TRUE(grid()->selectRow(2));
    EXPECT_EQ(table.selectedRow(), 2);
    EXPECT_FALSE(grid()->unselectRow(1));
    EXPECT_TRUE(grid()->unselectRow(2));
    EXPECT_EQ(table.selectedRow(), -1);
    EXPECT_FALSE(grid()->selectRow(3));
}

TEST_F(TableAccessibility, ATableOfALifetimeMakesOnlyTheCellsThatAreAskedFor)
{
    showRows(numberedRows(36525));
    delegate.rowsAskedForView.clear();
    EXPECT_EQ(root()->childCount(), 2 * 36526);
    EXPECT_EQ(grid()->cellAt(36524, 1)->text(QAccessible::Name), u"Note: note 36524"_qs);
    EXPECT_EQ(delegate.rowsAskedForView, std::vector<int>{36524});
}

} // namespace
