// SPDX-License-Identifier: MIT

// The whole of a note is seen while it is written. These tests run on the fonts of several desktops and at two scales
// (table.cmake): where a font's own line is higher than a row, a text control moves its text.
#include "look/FocusRing.h"
#include "look/TableMetrics.h"
#include "table/table_fixture.h"

#include <QApplication>
#include <QFontInfo>
#include <QImage>
#include <QInputMethod>
#include <QInputMethodEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>

#include <map>

namespace {

constexpr int lineHeight = 17;
constexpr int listLength = 60;

QString lineOfText(int line)
{
    return QStringLiteral("%1 Épgjqy,").arg(line * 37);
}

bool isInk(QRgb pixel)
{
    return qGray(pixel) < 128;
}

/// The picture's ink alone, within `part`, which is in points.
QImage inkOf(const QImage& picture, const QRect& part)
{
    const int scale = static_cast<int>(picture.devicePixelRatio());
    QImage ink = picture.copy(part.left() * scale, part.top() * scale, part.width() * scale, part.height() * scale)
                     .convertToFormat(QImage::Format_RGB32);
    for (int y = 0; y < ink.height(); ++y) {
        for (int x = 0; x < ink.width(); ++x) {
            ink.setPixel(x, y, isInk(ink.pixel(x, y)) ? qRgb(0, 0, 0) : qRgb(255, 255, 255));
        }
    }
    ink.setDevicePixelRatio(1);
    return ink;
}

/// How many rows of the picture have a pixel that is not quite white.
int rowsWithInk(const QImage& picture)
{
    int rows = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (qGray(picture.pixel(x, y)) < 230) {
                ++rows;
                break;
            }
        }
    }
    return rows;
}

/// The longest run of ink in any row of the picture, in pixels.
int longestStroke(const QImage& ink)
{
    int longest = 0;
    for (int y = 0; y < ink.height(); ++y) {
        int run = 0;
        for (int x = 0; x < ink.width(); ++x) {
            run = isInk(ink.pixel(x, y)) ? run + 1 : 0;
            longest = std::max(longest, run);
        }
    }
    return longest;
}

QPalette blackOnWhite()
{
    QPalette palette;
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::Text, Qt::black);
    return palette;
}

/// The table of 33 lines' height, and another one of the same rows in which nothing is edited: what is written must
/// stand where it will be read.
class TableWriting : public TableTest {
protected:
    TableWriting()
    {
        for (QWidget* each : {&window, &page}) {
            each->setPalette(blackOnWhite());
            each->resize(500, 600);
        }
        for (TableView* each : {&table, &reading}) {
            each->setGeometry(0, 0, 500, 590);
            each->setSelectionHighlightStyle(SelectionHighlightStyle::None);
            each->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        }
        elsewhere.hide();
        for (const TableColumn& column : table.tableColumns()) {
            reading.addColumn(column);
        }
        reading.setDelegate(&readingDelegate);
        page.show();
        QApplication::setCursorFlashTime(0);
    }
    ~TableWriting() override { reading.setDelegate(nullptr); }

    /// Begins to edit `row` of a long list, its text removed; the list is scrolled so that the row stands at its top,
    /// in its middle or at its end.
    void beginIn(int row)
    {
        showRows(numberedRows(listLength));
        table.scrollRowToVisible(std::min(row + 8, listLength - 1));
        table.editColumn(noteColumn, row);
        editor().setCursorWidth(0);
        press(Qt::Key_A, Qt::ControlModifier);
        press(Qt::Key_Delete);
    }

    QImage picture()
    {
        for (FocusRing* ring : table.findChildren<FocusRing*>()) {
            ring->hide(); // what is looked at is the text
        }
        return table.viewport()->grab().toImage();
    }

    QImage pictureToRead()
    {
        readingDelegate.texts = delegate.texts;
        reading.reloadData();
        reading.verticalScrollBar()->setValue(table.verticalScrollBar()->value());
        return reading.viewport()->grab().toImage();
    }

    QRect lineOfRow(int row, int line) const
    {
        const QRect cell = table.rectOfCell(noteColumn, row);
        return {cell.left() + 4, cell.top() + line * lineHeight, cell.width() - 8, lineHeight};
    }

    /// That the edited note is in view as a whole and each of its lines stands where it is read.
    void expectAllSeen(int row, const std::string& when)
    {
        SCOPED_TRACE(when);
        const QRect cell = table.rectOfCell(noteColumn, row);
        ASSERT_EQ(cell & table.viewport()->rect(), cell) << "the note is not all in view";
        const QImage written = picture();
        const QImage read = pictureToRead();
        const QStringList lines = delegate.texts.at(row).split(u'\n');
        for (int line = 0; line < lines.size(); ++line) {
            const QImage ink = inkOf(written, lineOfRow(row, line));
            ASSERT_EQ(ink, inkOf(read, lineOfRow(row, line))) << "line " << line;
            ASSERT_EQ(rowsWithInk(ink) > 0, !lines.at(line).isEmpty()) << "line " << line;
        }
    }

    /// Where an input method is told that the caret is, in the viewport's coordinates.
    QRect toldCaret() const
    {
        const QVariant told = QInputMethod::queryFocusObject(Qt::ImCursorRectangle, {});
        EXPECT_EQ(told, editor().inputMethodQuery(Qt::ImCursorRectangle));
        return told.toRectF().toAlignedRect().translated(editor().pos());
    }

    QWidget page;
    TableView reading{&page};
    FakeTableDelegate readingDelegate;
};

TEST(TestFonts, AreTheOnesAskedFor)
{
    const std::map<QByteArray, QString> families{{"", u"DejaVu Sans"_qs},
                                                 {"dejavu", u"DejaVu Sans"_qs},
                                                 {"cantarell", u"Cantarell"_qs},
                                                 {"cjk", u"Noto Sans CJK JP"_qs},
                                                 {"noto", u"Noto Sans"_qs}};
    EXPECT_EQ(QFontInfo(cellFont()).family(), families.at(qgetenv("TEST_FONTS")));
}

class TableWritingAtAPlace : public TableWriting, public ::testing::WithParamInterface<int> {};

TEST_P(TableWritingAtAPlace, EveryLineIsSeenWhileTheNextOneIsTyped)
{
    const int row = GetParam();
    beginIn(row);
    for (int line = 0; line < 30 && !HasFatalFailure(); ++line) {
        if (line > 0) {
            press(Qt::Key_Return);
            expectAllSeen(row, "at the start of line " + std::to_string(line));
        }
        QTest::keyClicks(&editor(), QStringLiteral("%1 pgjqy,").arg(line));
        expectAllSeen(row, "at the end of line " + std::to_string(line));
    }
    EXPECT_EQ(delegate.texts.at(row).count(u'\n'), 29);
}

TEST_P(TableWritingAtAPlace, EveryLineIsSeenWhereverTheCaretGoes)
{
    for (const int count : {2, 3, 12, 30}) {
        const int row = GetParam();
        beginIn(row);
        QStringList lines;
        for (int line = 0; line < count; ++line) {
            lines.append(lineOfText(line));
        }
        editor().insertPlainText(lines.join(u'\n'));
        expectAllSeen(row, "after a paste");
        for (int step = 0; step < count && !HasFatalFailure(); ++step) {
            expectAllSeen(row, "upwards " + std::to_string(step));
            EXPECT_EQ(toldCaret().top(), lineOfRow(row, count - 1 - step).top());
            EXPECT_EQ(toldCaret().height(), lineHeight);
            press(Qt::Key_Up);
        }
        for (const int key : {Qt::Key_Down, Qt::Key_PageDown, Qt::Key_PageUp, Qt::Key_End, Qt::Key_Home}) {
            press(key);
            expectAllSeen(row, "after key " + std::to_string(key));
        }
        for (const int key : {Qt::Key_End, Qt::Key_Home}) {
            press(key, Qt::ControlModifier);
            expectAllSeen(row, "after the note's end " + std::to_string(key));
            EXPECT_EQ(toldCaret().top(), lineOfRow(row, key == Qt::Key_End ? count - 1 : 0).top());
        }
        press(Qt::Key_Return); // in the first line
        expectAllSeen(row, "after a line before the others");
        table.endEditing();
        if (HasFatalFailure()) {
            return;
        }
    }
}

TEST_P(TableWritingAtAPlace, WhatIsComposedIsSeenWithItsUnderlineAndTheLinesAround)
{
    const int row = GetParam();
    beginIn(row);
    editor().insertPlainText(QStringLiteral("first\n\nthird"));
    for (const int line : {1, 2, 0}) {
        QTextCursor caret = editor().textCursor();
        caret.setPosition(editor().document()->findBlockByNumber(line).position());
        editor().setTextCursor(caret);
        const QImage before = picture();
        const QString composed = QStringLiteral("gjpqy");
        QTextCharFormat underlined;
        underlined.setFontUnderline(true);
        QInputMethodEvent composing(composed, {{QInputMethodEvent::TextFormat, 0, 5, underlined}});
        QApplication::sendEvent(&editor(), &composing);
        const QImage during = picture();
        for (int other = 0; other < 3; ++other) {
            if (other != line) {
                EXPECT_EQ(inkOf(during, lineOfRow(row, other)), inkOf(before, lineOfRow(row, other))) << other;
            }
        }
        const QImage ink = inkOf(during, lineOfRow(row, line));
        const double width = QFontMetricsF(cellFont()).horizontalAdvance(composed) * during.devicePixelRatio();
        EXPECT_GE(longestStroke(ink), static_cast<int>(width) - 3) << "the underline is not seen, line " << line;
        EXPECT_EQ(toldCaret().top(), lineOfRow(row, line).top());

        QInputMethodEvent commit;
        commit.setCommitString(composed);
        QApplication::sendEvent(&editor(), &commit);
        expectAllSeen(row, "after line " + std::to_string(line) + " was composed");
    }
}

TEST_P(TableWritingAtAPlace, NoDescenderIsCut)
{
    beginIn(GetParam());
    editor().insertPlainText(QStringLiteral("pgjqy\npgjqy"));
    const QImage written = picture();
    const int scale = static_cast<int>(written.devicePixelRatio());

    QImage free(200 * scale, 60 * scale, QImage::Format_RGB32);
    free.setDevicePixelRatio(scale);
    free.fill(Qt::white);
    QPainter painter(&free);
    painter.setFont(cellFont());
    painter.drawText(10, 30, QStringLiteral("pgjqy"));
    painter.end();

    for (const int line : {0, 1}) {
        const QRect part = lineOfRow(GetParam(), line);
        const QImage shown =
            written.copy(part.left() * scale, part.top() * scale, part.width() * scale, part.height() * scale);
        EXPECT_EQ(rowsWithInk(shown), rowsWithInk(free)) << "line " << line;
    }
}

INSTANTIATE_TEST_SUITE_P(
    List, TableWritingAtAPlace, ::testing::Values(0, listLength / 2, listLength - 1), [](const auto& place) {
        return std::string(place.param == 0 ? "Top" : place.param == listLength - 1 ? "Bottom" : "Middle");
    });

TEST_F(TableWriting, ALongNoteIsSeenAroundItsCaret)
{
    beginIn(20);
    editor().insertPlainText(QStringLiteral("line\n").repeated(200) + u"last"_qs);
    for (const int key : {Qt::Key_End, Qt::Key_Home}) {
        press(key, Qt::ControlModifier);
        EXPECT_TRUE(table.viewport()->rect().contains(toldCaret())) << key;
        const QImage written = picture();
        const QImage read = pictureToRead();
        const QRect shown = (table.rectOfCell(noteColumn, 20) & table.viewport()->rect()).adjusted(4, 0, -4, 0);
        EXPECT_EQ(inkOf(written, shown), inkOf(read, shown)) << key;
    }
}

TEST_F(TableWriting, TheCaretIsPaintedWhereTheInputMethodIsTold)
{
    beginIn(listLength - 1);
    press(Qt::Key_Return);
    editor().setCursorWidth(2);
    const QRect told = toldCaret();
    EXPECT_EQ(told.top(), lineOfRow(listLength - 1, 1).top());
    const QImage ink = inkOf(picture(), told.adjusted(0, 3, 1, -3));
    EXPECT_EQ(rowsWithInk(ink), ink.height());
    const QRect above = told.translated(0, -lineHeight).adjusted(0, 3, 1, -3);
    EXPECT_EQ(rowsWithInk(inkOf(picture(), above)), 0);
}

} // namespace
