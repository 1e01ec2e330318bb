// SPDX-License-Identifier: MIT
#include "table/ColumnLayout.h"
#include "table/TableHeaderView.h"
#include "table/table_fixture.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QMenu>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>

namespace {

TableColumn column(double width, bool stretches)
{
    TableColumn made;
    made.width = width;
    made.stretches = stretches;
    made.minimumWidth = 40;
    return made;
}

TEST(ColumnLayout, StretchingColumnsShareWhatTheFixedOnesLeave)
{
    const std::vector<TableColumn> columns = {column(100, false), column(0, true), column(0, true)};
    using Spans = std::vector<ColumnSpan>;
    EXPECT_EQ(layoutColumns(columns, 301, Qt::LeftToRight), (Spans{{0, 100}, {100, 100}, {200, 101}}));
    EXPECT_EQ(layoutColumns(columns, 301, Qt::RightToLeft), (Spans{{201, 100}, {101, 100}, {0, 101}}));
    EXPECT_EQ(layoutColumns(columns, 50, Qt::LeftToRight), (Spans{{0, 100}, {100, 40}, {140, 40}}));
    EXPECT_TRUE(layoutColumns({}, 300, Qt::LeftToRight).empty());
}

/// The tool tip that resting the pointer at `position` brings up; empty when none comes.
QString toolTipAt(const TableView& table, QPoint position)
{
    QToolTip::hideText();
    QHelpEvent event(QEvent::ToolTip, position, table.viewport()->mapToGlobal(position));
    QApplication::sendEvent(table.viewport(), &event);
    const QString shown = QToolTip::isVisible() ? QToolTip::text() : QString();
    QToolTip::hideText();
    return shown;
}

TEST_F(TableTest, OnlyATextThatIsCutHasAToolTip)
{
    const QString cut = u"much longer than the column is wide "_qs.repeated(5);
    showRows({u"short"_qs, cut});
    EXPECT_EQ(toolTipAt(table, middleOf(noteColumn, 0)), QString());
    EXPECT_TRUE(toolTipAt(table, middleOf(noteColumn, 1)).contains(cut.trimmed()));
}

TEST_F(TableTest, APointerOutsideTheRowsBringsUpNoToolTip)
{
    EXPECT_EQ(toolTipAt(table, {150, 100}), QString());
    showRows({u"only row"_qs});
    EXPECT_EQ(toolTipAt(table, {150, 100}), QString());
    EXPECT_EQ(toolTipAt(table, {-1, -1}), QString());
}

TEST_F(TableTest, RowsStandBelowEachOtherAsHighAsTheDelegateSays)
{
    showRows({u"one"_qs, u"a\nb\nc"_qs, u""_qs});
    EXPECT_EQ(table.numberOfRows(), 3);
    EXPECT_EQ(table.rectOfRow(0), QRect(0, 0, table.viewport()->width(), 17));
    EXPECT_EQ(table.rectOfRow(1), QRect(0, 17, table.viewport()->width(), 51));
    EXPECT_EQ(table.rectOfRow(2).height(), 17);
    EXPECT_EQ(table.rectOfRow(3), QRect());
    EXPECT_EQ(table.rectOfRow(-1), QRect());
    EXPECT_EQ(table.rowAt({5, 67}), 1);
    EXPECT_EQ(table.rowAt({5, 68}), 2);
    EXPECT_EQ(table.rowAt({5, 85}), -1);
}

TEST_F(TableTest, AChangedHeightMovesTheRowsBelow)
{
    showRows({u"one"_qs, u"two"_qs});
    delegate.texts[0] = u"one\nmore"_qs;
    table.noteHeightOfRowChanged(0);
    EXPECT_EQ(table.rectOfRow(1).top(), 34);
    table.noteHeightOfRowChanged(2);
    table.noteHeightOfRowChanged(-1);
    EXPECT_EQ(table.rectOfRow(1).top(), 34);
}

TEST_F(TableTest, WhilePaintingOnlyVisibleRowsAreAskedFor)
{
    showRows(numberedRows(36525));
    table.verticalScrollBar()->setValue(17 * 20000);
    delegate.rowsAskedForView.clear();
    table.viewport()->grab();
    ASSERT_FALSE(delegate.rowsAskedForView.empty());
    const auto [first, last] = std::minmax_element(delegate.rowsAskedForView.begin(), delegate.rowsAskedForView.end());
    EXPECT_EQ(*first, 20000);
    EXPECT_LE(*last, 20000 + table.viewport()->height() / 17 + 1);
}

TEST_F(TableTest, AReloadKeepsTheSelectedRowThatIsStillThereAndTellsNothing)
{
    showRows(numberedRows(5));
    table.selectRow(3);
    delegate.told.clear();
    delegate.texts = numberedRows(4);
    table.reloadData();
    EXPECT_EQ(table.selectedRow(), 3);
    EXPECT_TRUE(delegate.told.isEmpty());
}

TEST_F(TableTest, AReloadToFewerRowsSelectsNoneAndTellsSo)
{
    showRows(numberedRows(5));
    table.selectRow(3);
    delegate.told.clear();
    delegate.texts = numberedRows(3);
    table.reloadData();
    EXPECT_EQ(table.selectedRow(), -1);
    EXPECT_EQ(delegate.told, QStringList{u"changed -1"_qs});
}

TEST_F(TableTest, SelectingByProgramTellsTheChangeOnceAndIgnoresRowsThatDoNotExist)
{
    showRows(numberedRows(3));
    table.selectRow(1);
    table.selectRow(1);
    table.selectRow(3);
    table.selectRow(-2);
    EXPECT_EQ(table.selectedRow(), 1);
    table.selectRow(-1);
    EXPECT_EQ(delegate.told, (QStringList{u"changed 1"_qs, u"changed -1"_qs}));
}

TEST_F(TableTest, AClickSelectsTheRowAndTellsTheUserIsChangingIt)
{
    showRows(numberedRows(3));
    click(middleOf(dateColumn, 2));
    EXPECT_EQ(table.selectedRow(), 2);
    EXPECT_EQ(delegate.told, (QStringList{u"changing 2"_qs, u"changed 2"_qs}));
}

TEST_F(TableTest, AClickBelowTheRowsKeepsTheSelection)
{
    showRows(numberedRows(3));
    table.selectRow(1);
    click({20, 200});
    EXPECT_EQ(table.selectedRow(), 1);
}

TEST_F(TableTest, KeysMoveTheSelectionAndBringItIntoView)
{
    showRows(numberedRows(1000));
    table.setFocus();
    const int page = table.viewport()->height() / 17;
    struct {
        Qt::Key key;
        int row;
    } const keys[] = {{Qt::Key_Down, 0},  {Qt::Key_Down, 1},   {Qt::Key_Up, 0},   {Qt::Key_Up, 0},
                      {Qt::Key_End, 999}, {Qt::Key_Down, 999}, {Qt::Key_Home, 0}, {Qt::Key_A, 0}};
    for (const auto& step : keys) {
        press(step.key);
        EXPECT_EQ(table.selectedRow(), step.row);
        EXPECT_TRUE(table.viewport()->rect().contains(table.rectOfRow(table.selectedRow())));
    }
    press(Qt::Key_PageDown);
    EXPECT_NEAR(table.selectedRow(), page - 1, 1);
    press(Qt::Key_PageUp);
    EXPECT_EQ(table.selectedRow(), 0);
}

TEST_F(TableTest, KeysPassOverHiddenRows)
{
    showRows(numberedRows(4));
    table.hideRow(1);
    table.hideRow(3);
    table.setFocus();
    table.selectRow(0);
    press(Qt::Key_Down);
    EXPECT_EQ(table.selectedRow(), 2);
    press(Qt::Key_Down);
    EXPECT_EQ(table.selectedRow(), 2);
    press(Qt::Key_End);
    EXPECT_EQ(table.selectedRow(), 2);
}

TEST_F(TableTest, HiddenRowsTakeNoRoomUntilTheyAreShownAgain)
{
    showRows(numberedRows(3));
    table.hideRow(1);
    table.hideRow(7);
    EXPECT_EQ(table.hiddenRowIndexes(), std::set<int>{1});
    EXPECT_EQ(table.rectOfRow(2).top(), 17);
    table.noteHeightOfRowChanged(1);
    EXPECT_EQ(table.rectOfRow(2).top(), 17);
    table.unhideRow(1);
    EXPECT_TRUE(table.hiddenRowIndexes().empty());
    EXPECT_EQ(table.rectOfRow(2).top(), 34);
}

TEST_F(TableTest, AnInsertedRowMovesSelectionAndHiddenRows)
{
    showRows(numberedRows(4));
    table.selectRow(2);
    table.hideRow(3);
    delegate.texts.insert(1, u"new\nnote"_qs);
    table.insertRow(1);
    EXPECT_EQ(table.numberOfRows(), 5);
    EXPECT_EQ(table.selectedRow(), 3);
    EXPECT_EQ(table.hiddenRowIndexes(), std::set<int>{4});
    EXPECT_EQ(table.rectOfRow(1).height(), 34);
    table.insertRow(9);
    EXPECT_EQ(table.numberOfRows(), 5);
}

TEST_F(TableTest, ScrollingBringsARowIntoViewAndNoFurther)
{
    showRows(numberedRows(200));
    table.scrollRowToVisible(150);
    EXPECT_EQ(table.rectOfRow(150).bottom(), table.viewport()->height() - 1);
    const int value = table.verticalScrollBar()->value();
    table.scrollRowToVisible(149);
    EXPECT_EQ(table.verticalScrollBar()->value(), value);
    table.scrollRowToVisible(3);
    EXPECT_EQ(table.rectOfRow(3).top(), 0);
    table.scrollRowToVisible(1000);
    EXPECT_EQ(table.rectOfRow(3).top(), 0);
}

TEST_F(TableTest, CopyTakesTheCellsOfTheSelectedRow)
{
    showRows({u"milk"_qs, u"bread"_qs});
    table.setFocus();
    table.selectRow(1);
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), u"day 1\tbread"_qs);
}

TEST_F(TableTest, AClickOnAHeaderSortsAndTheNextTurnsTheOrder)
{
    showRows(numberedRows(2));
    auto& header = const_cast<TableHeaderView&>(table.header());
    const QPoint date = header.sectionRect(dateColumn).center();
    QTest::mouseClick(&header, Qt::LeftButton, Qt::NoModifier, date);
    EXPECT_EQ(table.sortDescriptors(), (std::vector<SortDescriptor>{{"date", SortOrder::Ascending}}));
    QTest::mouseClick(&header, Qt::LeftButton, Qt::NoModifier, date);
    EXPECT_EQ(table.sortDescriptors(), (std::vector<SortDescriptor>{{"date", SortOrder::Descending}}));
    QTest::mouseClick(&header, Qt::LeftButton, Qt::NoModifier, date);
    EXPECT_EQ(table.sortDescriptors(), (std::vector<SortDescriptor>{{"date", SortOrder::Ascending}}));
    QTest::mouseClick(&header, Qt::LeftButton, Qt::NoModifier, header.sectionRect(noteColumn).center());
    EXPECT_EQ(delegate.told, (QStringList{u"sort"_qs, u"sort"_qs, u"sort"_qs}));
}

TEST_F(TableTest, SortDescriptorsThatAreNotNewTellNothing)
{
    table.setSortDescriptors({{"date", SortOrder::Ascending}});
    delegate.told.clear();
    table.setSortDescriptors({{"date", SortOrder::Ascending}});
    EXPECT_TRUE(delegate.told.isEmpty());
}

TEST_F(TableTest, TheEdgeBetweenTwoColumnsCanBeDraggedDownToTheMinimum)
{
    auto& header = const_cast<TableHeaderView&>(table.header());
    QTest::mousePress(&header, Qt::LeftButton, Qt::NoModifier, {100, 10});
    QTest::mouseMove(&header, {140, 10});
    EXPECT_EQ(table.rectOfCell(dateColumn, 0), QRect());
    showRows(numberedRows(1));
    EXPECT_EQ(table.rectOfCell(dateColumn, 0).width(), 140);
    EXPECT_EQ(table.rectOfCell(noteColumn, 0).left(), 140);
    QTest::mouseMove(&header, {3, 10});
    QTest::mouseRelease(&header, Qt::LeftButton, Qt::NoModifier, {3, 10});
    EXPECT_EQ(table.rectOfCell(dateColumn, 0).width(), 40);
    EXPECT_TRUE(table.sortDescriptors().empty());
}

TEST_F(TableTest, InARightToLeftLayoutTheFirstColumnStandsAtTheRight)
{
    showRows(numberedRows(1));
    table.setLayoutDirection(Qt::RightToLeft);
    EXPECT_EQ(table.rectOfCell(dateColumn, 0).right(), table.viewport()->width() - 1);
    EXPECT_EQ(table.rectOfCell(noteColumn, 0).left(), 0);
    EXPECT_EQ(table.columnAt({5, 5}), noteColumn);
}

/// Asks for the menu at `position` of the viewport and tells which row the table named while the menu was about to
/// show.
int clickedRowAtMenu(TableView& table, QPoint position, QContextMenuEvent::Reason reason)
{
    QMenu menu;
    menu.addAction(QStringLiteral("Remind me"));
    table.setMenu(&menu);
    int row = -2;
    QObject::connect(&menu, &QMenu::aboutToShow, &menu, [&] { row = table.clickedRow(); });
    QContextMenuEvent event(reason, position, table.viewport()->mapToGlobal(position));
    QApplication::sendEvent(table.viewport(), &event);
    menu.close();
    return row;
}

TEST_F(TableTest, TheMenuKnowsTheClickedRowBeforeItShowsAndLeavesTheSelection)
{
    showRows(numberedRows(3));
    table.selectRow(0);
    EXPECT_EQ(clickedRowAtMenu(table, middleOf(noteColumn, 2), QContextMenuEvent::Mouse), 2);
    EXPECT_EQ(table.selectedRow(), 0);
    EXPECT_EQ(clickedRowAtMenu(table, {50, 200}, QContextMenuEvent::Mouse), -1);
}

TEST_F(TableTest, TheMenuKeySpeaksOfTheSelectedRow)
{
    showRows(numberedRows(3));
    table.selectRow(1);
    EXPECT_EQ(clickedRowAtMenu(table, {}, QContextMenuEvent::Keyboard), 1);
    table.selectRow(-1);
    EXPECT_EQ(clickedRowAtMenu(table, {}, QContextMenuEvent::Keyboard), -1);
}

TEST_F(TableTest, ATableWithoutDelegateHasNoRows)
{
    showRows(numberedRows(3));
    table.setDelegate(nullptr);
    EXPECT_EQ(table.numberOfRows(), 0);
    table.viewport()->grab();
}

} // namespace
