// SPDX-License-Identifier: MIT
#include "table/CellEditor.h"

#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QMimeData>
#include <QSignalSpy>
#include <QTest>
#include <QTextBlock>
#include <gtest/gtest.h>

namespace {

void setCaret(CellEditor& editor, int position, int anchor = -1)
{
    QTextCursor caret = editor.textCursor();
    caret.setPosition(anchor < 0 ? position : anchor);
    caret.setPosition(position, QTextCursor::KeepAnchor);
    editor.setTextCursor(caret);
}

void setClipboard(const QString& text)
{
    QApplication::clipboard()->setText(text);
}

const QString everyNewline = u"a\rb\nc\r\nd\u000Be\u000Cf\u0085g\u2028h\u2029i\n"_qs;

TEST(CellEditor, ATextComesBackAsItWas)
{
    for (const QString& text :
         {u""_qs, u"\r"_qs, u"\n\n"_qs, everyNewline, u"nbsp\u00A0tab\tnon-character \uFDD0 \uFDD1 \uFFFC"_qs}) {
        CellEditor editor(text, 17.0, nullptr);
        EXPECT_EQ(editor.text(), text);
        setCaret(editor, 0);
        QTest::keyClicks(&editor, QStringLiteral("X"));
        EXPECT_EQ(editor.text(), u"X"_qs + text);
    }
}

TEST(CellEditor, AnEditElsewhereLeavesEveryNewlineAsItWas)
{
    CellEditor editor(everyNewline, 17.0, nullptr);
    setCaret(editor, static_cast<int>(everyNewline.size()) - 1);
    QTest::keyClicks(&editor, QStringLiteral("X"));
    QTest::keyClick(&editor, Qt::Key_Return);
    QString expected = everyNewline;
    expected.insert(everyNewline.size() - 1, u"X\n"_qs);
    EXPECT_EQ(editor.text(), expected);
}

TEST(CellEditor, ANewLineIsALineFeedEvenAmongCarriageReturns)
{
    CellEditor editor(u"a\rb\rc"_qs, 17.0, nullptr);
    setCaret(editor, 3);
    QTest::keyClick(&editor, Qt::Key_Return);
    EXPECT_EQ(editor.text(), u"a\rb\n\rc"_qs);
}

TEST(CellEditor, ARemovedNewlineIsTheSameAgainAfterUndo)
{
    CellEditor editor(u"a\rb\u2028c"_qs, 17.0, nullptr);
    setCaret(editor, 2);
    QTest::keyClick(&editor, Qt::Key_Backspace);
    EXPECT_EQ(editor.text(), u"ab\u2028c"_qs);
    QTest::keyClick(&editor, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(editor.text(), u"a\rb\u2028c"_qs);
    QTest::keyClick(&editor, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(editor.text(), u"ab\u2028c"_qs);
}

TEST(CellEditor, UndoNeverGoesBehindTheTextTheEditBeganWith)
{
    CellEditor editor(u"begun"_qs, 17.0, nullptr);
    QTest::keyClick(&editor, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(editor.text(), u"begun"_qs);
}

TEST(CellEditor, CutAndPastedTextKeepsItsNewlines)
{
    CellEditor editor(u"a\rb\u2029c"_qs, 17.0, nullptr);
    setCaret(editor, 5, 1);
    editor.cut();
    EXPECT_EQ(editor.text(), u"a"_qs);
    EXPECT_EQ(QApplication::clipboard()->mimeData()->formats(), QStringList{u"text/plain"_qs});
    editor.paste();
    EXPECT_EQ(editor.text(), u"a\rb\u2029c"_qs);
}

TEST(CellEditor, RichTextIsPastedPlain)
{
    auto* rich = new QMimeData;
    rich->setHtml(u"<b>bold</b>"_qs);
    rich->setText(u"bold"_qs);
    QApplication::clipboard()->setMimeData(rich);
    CellEditor editor(QString(), 17.0, nullptr);
    editor.paste();
    EXPECT_EQ(editor.text(), u"bold"_qs);
    EXPECT_FALSE(editor.document()->firstBlock().begin().fragment().charFormat().hasProperty(QTextFormat::FontWeight));
}

TEST(CellEditor, PastedTextLosesWhatXmlCannotCarry)
{
    setClipboard(u"a\u0001b\u001Bc\r\nd"_qs);
    CellEditor editor(QString(), 17.0, nullptr);
    editor.paste();
    EXPECT_EQ(editor.text(), u"abc\r\nd"_qs);
}

TEST(CellEditor, APasteIsOneStepToUndo)
{
    setClipboard(u"x\ry\nz"_qs);
    CellEditor editor(u"start"_qs, 17.0, nullptr);
    setCaret(editor, 5, 0);
    editor.paste();
    editor.undo();
    EXPECT_EQ(editor.text(), u"start"_qs);
}

TEST(CellEditor, AnInputMethodComposesAndCommits)
{
    CellEditor editor(u"a\rb"_qs, 17.0, nullptr);
    setCaret(editor, 3);
    QSignalSpy edited(&editor, &CellEditor::edited);
    QInputMethodEvent composing(u"\u306B"_qs, {});
    QApplication::sendEvent(&editor, &composing);
    EXPECT_EQ(editor.text(), u"a\rb"_qs);
    EXPECT_EQ(edited.count(), 0);
    QInputMethodEvent commit;
    commit.setCommitString(u"\u65E5\u0001\nx"_qs);
    QApplication::sendEvent(&editor, &commit);
    EXPECT_EQ(editor.text(), u"a\rb\u65E5\nx"_qs);
}

TEST(CellEditor, EveryChangeIsToldOnceWithTheNewText)
{
    CellEditor editor(u"a"_qs, 17.0, nullptr);
    QStringList told;
    QObject::connect(&editor, &CellEditor::edited, &editor, [&] { told.append(editor.text()); });
    setCaret(editor, 1);
    QTest::keyClicks(&editor, QStringLiteral("bc"));
    QTest::keyClick(&editor, Qt::Key_Left);
    QTest::keyClick(&editor, Qt::Key_Backspace);
    EXPECT_EQ(told, (QStringList{u"ab"_qs, u"abc"_qs, u"ac"_qs}));
}

TEST(CellEditor, EscapeAsksForTheEndAndTabForTheNextCellAndTypeNothing)
{
    CellEditor editor(u"a"_qs, 17.0, nullptr);
    QStringList told;
    QObject::connect(&editor, &CellEditor::endRequested, &editor, [&] { told.append(u"end"_qs); });
    QObject::connect(&editor, &CellEditor::moveRequested, &editor,
                     [&](int step) { told.append(QString::number(step)); });
    for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Tab, Qt::Key_Backtab}) {
        QTest::keyClick(&editor, key);
    }
    EXPECT_EQ(told, (QStringList{u"end"_qs, u"1"_qs, u"-1"_qs}));
    EXPECT_EQ(editor.text(), u"a"_qs);
}

} // namespace
