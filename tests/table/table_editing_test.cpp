// SPDX-License-Identifier: MIT
#include "table/table_fixture.h"

#include <QApplication>
#include <QDateEdit>
#include <QMenu>
#include <QPointer>
#include <QScrollBar>
#include <QTest>

namespace {

TEST_F(TableTest, AClickOnATextSelectsItsRowAndEditsItWhereItWasClicked)
{
    showRows({u"one"_qs, u"first line\nsecond line"_qs});
    const QRect cell = table.rectOfCell(noteColumn, 1);
    click({cell.left() + 8, cell.top() + 17 + 8}); // the start of the second line
    EXPECT_EQ(table.selectedRow(), 1);
    ASSERT_EQ(table.editedRow(), 1);
    EXPECT_EQ(editor().textCursor().position(), 11);
    EXPECT_EQ(window.focusWidget(), &editor());
}

TEST_F(TableTest, AClickOnAReadOnlyCellEditsNothing)
{
    showRows({u"one"_qs});
    click(middleOf(dateColumn, 0));
    EXPECT_EQ(table.editedRow(), -1);
    table.editColumn(dateColumn, 0);
    table.editColumn(noteColumn, 1);
    table.editColumn(7, 0);
    EXPECT_EQ(table.editedRow(), -1);
}

TEST_F(TableTest, ReturnAndF2EditTheSelectedRow)
{
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_F2}) {
        showRows({u"one"_qs, u"two"_qs});
        table.setFocus();
        table.selectRow(1);
        press(key);
        ASSERT_EQ(table.editedRow(), 1);
        EXPECT_EQ(editor().textCursor().position(), 3);
        press(Qt::Key_Escape);
        EXPECT_EQ(table.editedRow(), -1);
        EXPECT_TRUE(table.hasFocus());
        EXPECT_EQ(delegate.told.last(), u"ended two"_qs);
    }
}

TEST_F(TableTest, EachKeystrokeIsToldAndReturnGrowsTheRowAtOnce)
{
    showRows({u"one"_qs, u"two"_qs});
    table.editColumn(noteColumn, 0);
    press(Qt::Key_Return);
    QTest::keyClicks(&editor(), QStringLiteral("x"));
    EXPECT_EQ(delegate.texts[0], u"one\nx"_qs);
    EXPECT_EQ(delegate.told.count(u"typed"_qs), 2);
    EXPECT_EQ(table.rectOfRow(0).height(), 34);
    EXPECT_EQ(table.rectOfRow(1).top(), 34);
    EXPECT_EQ(editor().geometry().height(), 34);
}

TEST_F(TableTest, TheEndOfAnEditIsToldOnceWhileTheEditorIsStillThere)
{
    showRows({u"one"_qs});
    table.editColumn(noteColumn, 0);
    const QPointer<QWidget> view = table.viewAt(noteColumn, 0);
    EXPECT_EQ(table.rowForView(*view), 0);
    table.endEditing();
    table.endEditing();
    EXPECT_EQ(delegate.told.count(u"ended one"_qs), 1);
    EXPECT_EQ(table.viewAt(noteColumn, 0), nullptr);
    EXPECT_EQ(table.rowForView(*view), -1);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(view.isNull());
}

TEST_F(TableTest, AClickOnAnotherRowEndsTheEditBeforeItSelects)
{
    showRows({u"one"_qs, u"two"_qs});
    table.editColumn(noteColumn, 0);
    delegate.told.clear();
    click(middleOf(dateColumn, 1));
    EXPECT_EQ(delegate.told, (QStringList{u"ended one"_qs, u"changing 1"_qs, u"changed 1"_qs}));
}

TEST_F(TableTest, AClickBelowTheRowsEndsTheEdit)
{
    showRows({u"one"_qs});
    table.editColumn(noteColumn, 0);
    click({50, 200});
    EXPECT_EQ(table.editedRow(), -1);
}

TEST_F(TableTest, KeysThatGoToAnotherControlEndTheEdit)
{
    showRows({u"one"_qs});
    table.editColumn(noteColumn, 0);
    elsewhere.setFocus();
    EXPECT_EQ(table.editedRow(), -1);
    EXPECT_TRUE(elsewhere.hasFocus());
    EXPECT_EQ(delegate.told.last(), u"ended one"_qs);
}

TEST_F(TableTest, AnotherWindowOrAMenuInFrontLeavesTheEditAlone)
{
    showRows({u"one"_qs});
    table.editColumn(noteColumn, 0);
    QWidget other;
    other.setFocusPolicy(Qt::StrongFocus);
    other.show();
    QApplication::setActiveWindow(&other);
    other.setFocus();
    EXPECT_EQ(table.editedRow(), 0);
    QApplication::setActiveWindow(&window);
    QMenu menu;
    menu.addAction(u"x"_qs);
    menu.popup({});
    EXPECT_EQ(table.editedRow(), 0);
    menu.close();
    EXPECT_EQ(table.editedRow(), 0);
}

TEST_F(TableTest, AnEditAndItsUndoSurviveWhatIsRedrawnAround)
{
    showRows(numberedRows(50));
    table.editColumn(noteColumn, 1);
    QTest::keyClicks(&editor(), QStringLiteral("!"));
    const QPointer<QWidget> view = table.viewAt(noteColumn, 1);
    delegate.texts[0] = u"a\nb"_qs;
    table.noteHeightOfRowChanged(0);
    table.redrawRow(1);
    table.setColumnWidth(dateColumn, 130);
    table.verticalScrollBar()->setValue(300);
    table.verticalScrollBar()->setValue(0);
    window.resize(500, 300);
    ASSERT_EQ(table.viewAt(noteColumn, 1), view);
    EXPECT_EQ(view->geometry().topLeft(), QPoint(130 + 8, 34));
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(delegate.texts[1], u"note 1"_qs);
}

TEST_F(TableTest, ARowInsertedAboveMovesTheEditAlong)
{
    showRows(numberedRows(3));
    table.editColumn(noteColumn, 1);
    delegate.texts.prepend(u"new"_qs);
    table.insertRow(0);
    EXPECT_EQ(table.editedRow(), 2);
    QTest::keyClicks(&editor(), QStringLiteral("!"));
    EXPECT_EQ(delegate.texts[2], u"note 1!"_qs);
    EXPECT_EQ(editor().y(), 34);
}

TEST_F(TableTest, AReloadEndsTheEditFirst)
{
    showRows(numberedRows(3));
    table.editColumn(noteColumn, 2);
    delegate.texts = numberedRows(1);
    table.reloadData();
    EXPECT_EQ(table.editedRow(), -1);
    EXPECT_EQ(delegate.told.first(), u"changing 2"_qs);
    EXPECT_TRUE(delegate.told.contains(u"ended note 2"_qs));
}

class ReloadingDelegate : public FakeTableDelegate {
public:
    void controlTextDidEndEditing(QWidget& field) override
    {
        FakeTableDelegate::controlTextDidEndEditing(field);
        texts.clear();
        table->reloadData();
    }
};

TEST_F(TableTest, ADelegateMayReloadAtTheEndOfAnEdit)
{
    ReloadingDelegate reloading;
    reloading.table = &table;
    reloading.texts = numberedRows(3);
    table.setDelegate(&reloading);
    table.editColumn(noteColumn, 1);
    table.editColumn(noteColumn, 2);
    EXPECT_EQ(reloading.told.count(u"ended note 1"_qs), 1);
    EXPECT_EQ(table.numberOfRows(), 0);
    EXPECT_EQ(table.editedRow(), -1);
    table.setDelegate(nullptr);
}

TEST_F(TableTest, TheTableFollowsTheCaretThroughALongNote)
{
    showRows({u"line\n"_qs.repeated(999) + u"end"_qs});
    table.editColumn(noteColumn, 0);
    EXPECT_EQ(editor().caretLine(), 999);
    const int below = table.viewport()->height() - table.rectOfRow(0).bottom() - 1;
    EXPECT_EQ(below, 0);
    EXPECT_LE(editor().height(), table.viewport()->height() + 2 * 17);
    press(Qt::Key_Home, Qt::ControlModifier);
    EXPECT_EQ(table.verticalScrollBar()->value(), 0);
    EXPECT_EQ(editor().y(), 0);
    const QRect caret = editor().cursorRect();
    EXPECT_TRUE(editor().rect().intersects(caret));
}

TEST_F(TableTest, TheWheelScrollsTheTableUnderAnEdit)
{
    showRows(numberedRows(100));
    table.editColumn(noteColumn, 0);
    QWheelEvent wheel(QPointF(10, 5), editor().mapToGlobal(QPointF(10, 5)), {}, QPoint(0, -240), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(editor().viewport(), &wheel);
    EXPECT_GT(table.verticalScrollBar()->value(), 0);
    EXPECT_EQ(table.editedRow(), 0);
}

TEST_F(TableTest, TypedTextStandsWhereTheCellDrawsIt)
{
    showRows({u"HHH"_qs, u"x"_qs});
    const QRect cell = table.rectOfCell(noteColumn, 0).adjusted(2, 2, -2, -2);
    const QImage drawn = table.viewport()->grab(cell).toImage();
    table.editColumn(noteColumn, 0);
    elsewhere.setFocusPolicy(Qt::NoFocus);
    QTextCursor end = editor().textCursor();
    editor().setCursorWidth(0);
    const QImage edited = table.viewport()->grab(cell).toImage();
    const auto firstDark = [](const QImage& image) {
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixelColor(x, y).lightness() < 90) {
                    return QPoint(x, y);
                }
            }
        }
        return QPoint(-1, -1);
    };
    ASSERT_NE(firstDark(drawn), QPoint(-1, -1));
    EXPECT_EQ(firstDark(edited), firstDark(drawn));
}

/// A table whose dates are edited in a date picker.
class DatePickerTable : public TableTest {
protected:
    DatePickerTable()
    {
        TableColumn day;
        day.identifier = QStringLiteral("day");
        day.editing = TableColumn::Editing::Editable;
        day.editorFactory = [this](QWidget* parent, int row) {
            auto* picker = row == refusedRow ? nullptr : new QDateEdit(QDate(2024, 3, row + 1), parent);
            return picker;
        };
        table.addColumn(day);
        showRows(numberedRows(5));
    }

    int refusedRow = 4;
    const int dayColumn = 2;
};

TEST_F(DatePickerTable, TheControlStandsInItsCellWhileItIsEdited)
{
    EXPECT_EQ(table.viewAt(dayColumn, 3), nullptr);
    click(middleOf(dayColumn, 3));
    auto* const picker = qobject_cast<QDateEdit*>(table.viewAt(dayColumn, 3));
    ASSERT_NE(picker, nullptr);
    EXPECT_EQ(picker->date(), QDate(2024, 3, 4));
    EXPECT_EQ(picker->geometry(), table.rectOfCell(dayColumn, 3));
    EXPECT_EQ(table.rowForView(*picker), 3);
    const auto* const inside = picker->findChild<QWidget*>();
    ASSERT_NE(inside, nullptr);
    EXPECT_EQ(table.rowForView(*inside), 3);
    QTest::keyClick(picker, Qt::Key_Return);
    EXPECT_EQ(table.editedRow(), -1);
    EXPECT_TRUE(table.hasFocus());
}

TEST_F(DatePickerTable, AFactoryMayRefuseARow)
{
    table.editColumn(dayColumn, 4);
    EXPECT_EQ(table.editedRow(), -1);
}

TEST_F(DatePickerTable, TheTabKeyGoesOnToTheNextCellThatCanBeEdited)
{
    table.editColumn(noteColumn, 2);
    press(Qt::Key_Tab);
    EXPECT_EQ(table.editedColumn(), dayColumn);
    EXPECT_EQ(table.editedRow(), 2);
    QTest::keyClick(table.viewAt(dayColumn, 2), Qt::Key_Backtab);
    EXPECT_EQ(table.editedColumn(), noteColumn);
    EXPECT_EQ(editor().textCursor().selectedText(), u"note 2"_qs) << "typing replaces the text";
    press(Qt::Key_Backtab);
    EXPECT_EQ(table.editedRow(), -1);
    EXPECT_TRUE(table.hasFocus());
    table.editColumn(dayColumn, 2);
    QTest::keyClick(table.viewAt(dayColumn, 2), Qt::Key_Tab);
    EXPECT_EQ(table.editedRow(), -1) << "nothing comes after the last column";
}

TEST_F(DatePickerTable, TheTabKeyEndsTheEditWhereTheNextCellRefusesOne)
{
    table.editColumn(noteColumn, refusedRow);
    press(Qt::Key_Tab);
    EXPECT_EQ(table.editedRow(), -1);
}

TEST_F(DatePickerTable, ReturnEditsTheTextAndThatIsSpoken)
{
    EXPECT_EQ(table.spokenColumn(), noteColumn);
    table.setFocus();
    table.selectRow(1);
    QTest::keyClick(&table, Qt::Key_Return);
    EXPECT_EQ(table.editedColumn(), noteColumn);
}

TEST_F(DatePickerTable, TheEndOfAControlsEditIsNotATextsEnd)
{
    table.editColumn(dayColumn, 1);
    delegate.told.clear();
    elsewhere.setFocus();
    EXPECT_EQ(table.editedRow(), -1);
    EXPECT_TRUE(delegate.told.isEmpty());
}

} // namespace
