// SPDX-License-Identifier: MIT
#include "calendar/NoteField.h"
#include "calendar/WholeNote.h"
#include "support/Pixels.h"
#include "support/Screenshot.h"

#include <QApplication>
#include <QClipboard>
#include <QHelpEvent>
#include <QLabel>
#include <QPointer>
#include <QScrollBar>
#include <QTest>
#include <QToolTip>
#include <gtest/gtest.h>

namespace {

const QString longNote = QStringLiteral("<i>Packing</i> list: ") + QStringLiteral("socks and shirts\n").repeated(40);

class NoteFieldTest : public ::testing::Test {
protected:
    NoteFieldTest()
    {
        field.setAccessibleName(QStringLiteral("Friday"));
        field.resize(120, 60);
        field.show();
    }

    void hover()
    {
        QHelpEvent event(QEvent::ToolTip, QPoint(5, 5), field.viewport()->mapToGlobal(QPoint(5, 5)));
        QApplication::sendEvent(field.viewport(), &event);
    }

    NoteField field;
};

/// Where the ink of each line of text stands, from the top down. Lines are told apart by rows of pixels without ink.
std::vector<QRect> linesOf(QWidget& widget)
{
    const QImage picture = grabbed(widget);
    std::vector<QRect> lines;
    bool inLine = false;
    for (int y = 0; y < picture.height(); ++y) {
        const QRect row = placeOf(picture.copy(0, y, picture.width(), 1), isInk).translated(0, y);
        if (row.isEmpty()) {
            inLine = false;
        } else if (inLine) {
            lines.back() |= row;
        } else {
            lines.push_back(row);
            inLine = true;
        }
    }
    return lines;
}

TEST_F(NoteFieldTest, WrapsAndIsCutOnlyWhenItIsLonger)
{
    field.setNote(QStringLiteral("Tea"));
    EXPECT_FALSE(field.isCut());
    field.setNote(QStringLiteral("a word after a word after a word after a word after a word after a word"));
    EXPECT_TRUE(field.isCut());
    EXPECT_EQ(field.horizontalScrollBar()->maximum(), 0);
}

TEST_F(NoteFieldTest, CannotBeChangedButCopied)
{
    field.setNote(QStringLiteral("Tea at five"));
    QTest::keyClicks(&field, QStringLiteral("x"));
    QTest::keyClick(&field, Qt::Key_Delete);
    EXPECT_EQ(field.toPlainText(), QStringLiteral("Tea at five"));
    field.selectAll();
    field.copy();
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("Tea at five"));
}

TEST_F(NoteFieldTest, ShowsANewNoteFromItsBeginning)
{
    field.setNote(longNote);
    field.verticalScrollBar()->setValue(field.verticalScrollBar()->maximum());
    field.setNote(longNote + u'!');
    EXPECT_EQ(field.verticalScrollBar()->value(), 0);
}

TEST_F(NoteFieldTest, EachParagraphStandsWhereItsOwnDirectionBegins)
{
    field.resize(160, 200);
    for (const QString& lineBreak : {QStringLiteral("\n"), QStringLiteral("\r\n"), QStringLiteral("\u2028")}) {
        field.setNote(QStringList{QStringLiteral("Tea"), QStringLiteral("תה"), QStringLiteral("سلام"),
                                  QStringLiteral("4"), QStringLiteral("!7 תה")}
                          .join(lineBreak));
        const std::vector<QRect> lines = linesOf(*field.viewport());
        ASSERT_EQ(lines.size(), 5);
        for (const std::size_t left : {0, 3}) {
            EXPECT_LT(lines.at(left).left(), 10) << left;
        }
        for (const std::size_t right : {1, 2, 4}) {
            EXPECT_GT(lines.at(right).left(), 80) << right;
            EXPECT_GT(lines.at(right).right(), field.viewport()->width() - 10) << right;
        }
    }
}

TEST_F(NoteFieldTest, AParagraphWithoutALetterFollowsTheWindow)
{
    field.setLayoutDirection(Qt::RightToLeft);
    field.setNote(QStringLiteral("4\nTea"));
    const std::vector<QRect> lines = linesOf(*field.viewport());
    ASSERT_EQ(lines.size(), 2);
    EXPECT_GT(lines.at(0).right(), field.viewport()->width() - 10);
    EXPECT_LT(lines.at(1).left(), 10);
}

TEST_F(NoteFieldTest, ALongParagraphFromTheRightWrapsAtTheRightEdge)
{
    field.resize(120, 400);
    field.setNote(QStringLiteral("תור לרופא שיניים בשעה ").repeated(5));
    const std::vector<QRect> lines = linesOf(*field.viewport());
    ASSERT_GT(lines.size(), 3);
    for (const QRect& line : lines) {
        EXPECT_NEAR(line.right(), field.viewport()->width(), 5);
        EXPECT_GE(line.left(), 0);
    }
}

TEST_F(NoteFieldTest, AMirroredWindowCutsNothingOff)
{
    const QString note = QStringLiteral("long ").repeated(80); // which needs a scroll bar
    field.setNote(note);
    NoteField mirrored;
    mirrored.setLayoutDirection(Qt::RightToLeft);
    mirrored.show();
    mirrored.setNote(note);
    mirrored.resize(90, 60);
    QCoreApplication::processEvents();               // the scroll bar comes
    for (int width = 100; width < 140; width += 2) { // in some the blank at a line's end has no room
        field.resize(width, 60);
        mirrored.resize(width, 60);
        ASSERT_TRUE(mirrored.isCut());
        EXPECT_EQ(linesOf(*mirrored.viewport()), linesOf(*field.viewport())) << width;
    }
}

TEST_F(NoteFieldTest, TheWholeNoteStandsWhereEachOfItsParagraphsBegins)
{
    field.setNote(QStringLiteral("Tea\u2028תה"));
    QTest::keyClick(&field, Qt::Key_Return);
    QWidget& text = *field.findChild<WholeNote*>()->findChild<QPlainTextEdit*>()->viewport();
    const std::vector<QRect> lines = linesOf(text);
    ASSERT_EQ(lines.size(), 2);
    EXPECT_LT(lines.at(0).left(), 10);
    EXPECT_GT(lines.at(1).right(), text.width() - 10);
}

TEST_F(NoteFieldTest, AVeryLongNoteEndsBetweenTwoSigns)
{
    const QString family = QStringLiteral("👨‍👩‍👧");
    field.setNote(u'-' + family.repeated(2000));
    const QString shown = field.toPlainText();
    EXPECT_LT(shown.size(), 9000);
    EXPECT_TRUE(shown.endsWith(family + u'…'));
    EXPECT_EQ((shown.size() - 2) % family.size(), 0);
}

TEST_F(NoteFieldTest, ReturnShowsTheWholeNoteAndEscapeLeadsBack)
{
    field.setNote(longNote);
    field.setFocus();
    QTest::keyClick(&field, Qt::Key_Return);
    const QPointer<WholeNote> whole = field.findChild<WholeNote*>();
    ASSERT_TRUE(whole && whole->isVisible());
    auto* text = whole->findChild<QPlainTextEdit*>();
    EXPECT_EQ(text->toPlainText(), longNote);
    EXPECT_EQ(text->accessibleName(), QStringLiteral("Friday"));
    EXPECT_TRUE(text->isReadOnly());
    EXPECT_EQ(whole->findChild<QLabel*>()->text(), QStringLiteral("Friday"));
    QTest::keyClick(text, Qt::Key_Escape);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(whole);
}

TEST_F(NoteFieldTest, TheWholeNoteGoesWhenSomethingElseIsClicked)
{
    field.setNote(longNote);
    QTest::keyClick(&field, Qt::Key_Return);
    const QPointer<WholeNote> whole = field.findChild<WholeNote*>();
    QEvent elsewhere(QEvent::WindowDeactivate);
    QApplication::sendEvent(whole, &elsewhere);
    EXPECT_FALSE(whole && whole->isVisible());
}

TEST_F(NoteFieldTest, ThePointerShowsANoteThatIsCutToTheLetter)
{
    field.setNote(QStringLiteral("Tea"));
    hover();
    EXPECT_FALSE(QToolTip::isVisible());
    field.setNote(longNote);
    hover();
    EXPECT_TRUE(QToolTip::text().contains(QStringLiteral("&lt;i&gt;Packing&lt;/i&gt;")))
        << QToolTip::text().toStdString();
    QToolTip::hideText();
}

TEST_F(NoteFieldTest, TheTabKeyPassesOverAFieldWithoutANote)
{
    field.setNote(QStringLiteral("Tea"));
    EXPECT_EQ(field.focusPolicy(), Qt::StrongFocus);
    field.setNote({});
    EXPECT_EQ(field.focusPolicy(), Qt::NoFocus);
}

} // namespace
