// SPDX-License-Identifier: MIT
#include "calendar/NoteField.h"
#include "calendar/WholeNote.h"

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

} // namespace

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
