// SPDX-License-Identifier: MIT
#include "table/CellEditor.h"

#include "look/TableMetrics.h"
#include "table/FixedLineLayout.h"
#include "text/TextLines.h"
#include "text/XmlCharacters.h"

#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QStyle>
#include <QTextBlock>

#include <algorithm>

namespace {

// A text document has only one kind of line end. The newline character that it stands for is kept as a property of the
// line end's own character format, and so survives deletion, undo and redo.
constexpr int newlineProperty = QTextFormat::UserProperty;

/// Includes the two characters that a text document uses as its own frame marks.
bool endsLine(char16_t c)
{
    return isNewline(c) || c == u'\uFDD0' || c == u'\uFDD1';
}

QTextCharFormat newlineFormat(char16_t newline)
{
    QTextCharFormat format;
    if (newline != u'\n') {
        format.setProperty(newlineProperty, static_cast<int>(newline));
    }
    return format;
}

char16_t newlineOf(const QTextCharFormat& format)
{
    return format.hasProperty(newlineProperty) ? static_cast<char16_t>(format.intProperty(newlineProperty)) : u'\n';
}

/// Inserts runs of text with one kind of newline at once, so that a note of many lines is loaded in one step.
void insertWithItsNewlines(QTextCursor& cursor, const QString& text)
{
    QString run;
    char16_t newline = u'\n';
    for (const QChar c : text) {
        if (!endsLine(c.unicode())) {
            run += c;
            continue;
        }
        if (c != newline) {
            cursor.insertText(run, newlineFormat(newline));
            run.clear();
            newline = c.unicode();
        }
        run += u'\n';
    }
    cursor.insertText(run, newlineFormat(newline));
}

} // namespace

CellEditor::CellEditor(const QString& text, double lineHeight, QWidget* parent)
    : QTextEdit(parent), m_layout(new FixedLineLayout(*document(), lineHeight)), m_text(text)
{
    setFrameShape(QFrame::NoFrame);
    setLineWrapMode(QTextEdit::NoWrap);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFont(cellFont());
    setAcceptRichText(false);

    document()->setDocumentLayout(m_layout);
    document()->setDocumentMargin(0);
    document()->setDefaultFont(cellFont());
    setCursorWidth(style()->pixelMetric(QStyle::PM_TextCursorWidth, nullptr, this));
    document()->setUndoRedoEnabled(false);
    QTextCursor cursor(document());
    insertWithItsNewlines(cursor, text);
    document()->setUndoRedoEnabled(true);

    connect(this, &QTextEdit::textChanged, this, &CellEditor::noticeChange);
}

void CellEditor::setFirstLine(int line)
{
    m_layout->setFirstLine(line);
}

int CellEditor::caretLine() const
{
    return textCursor().blockNumber();
}

void CellEditor::noticeChange()
{
    QString now = textBetween(0, document()->characterCount() - 1);
    if (now != m_text) {
        m_text = std::move(now);
        m_edited = true;
        Q_EMIT edited();
    }
}

/// Positions in the document and in the text agree: each newline character is one position.
QString CellEditor::textBetween(int from, int to) const
{
    QString text;
    text.reserve(to - from);
    int knownFormat = -1;
    char16_t newline = u'\n';
    for (QTextBlock block = document()->findBlock(from); block.isValid() && block.position() <= to;
         block = block.next()) {
        if (block.position() > from) { // the line end before this block is within the range
            if (const int format = block.charFormatIndex(); format != knownFormat) {
                knownFormat = format;
                newline = newlineOf(block.charFormat());
            }
            text += QChar(newline);
        }
        const int start = std::max(from - block.position(), 0);
        text += QStringView(block.text()).mid(start, to - block.position() - start);
    }
    return text;
}

void CellEditor::insertTyped(const QString& text)
{
    QTextCursor cursor = textCursor();
    cursor.beginEditBlock();
    cursor.removeSelectedText();
    insertWithItsNewlines(cursor, withoutForbiddenXmlCharacters(text));
    cursor.endEditBlock();
    setTextCursor(cursor);
    ensureCursorVisible();
}

void CellEditor::addAtEnd(const QString& text)
{
    const int anchor = textCursor().anchor();
    const int position = textCursor().position();
    QTextCursor end(document());
    end.movePosition(QTextCursor::End);
    insertWithItsNewlines(end, withoutForbiddenXmlCharacters(text));
    QTextCursor caret = textCursor(); // inserting at the caret moved it
    caret.setPosition(anchor);
    caret.setPosition(position, QTextCursor::KeepAnchor);
    setTextCursor(caret);
}

// The clipboard: plain text only

QMimeData* CellEditor::createMimeDataFromSelection() const
{
    auto* mimeData = new QMimeData; // the clipboard or the drag owns it
    mimeData->setText(textBetween(textCursor().selectionStart(), textCursor().selectionEnd()));
    return mimeData;
}

bool CellEditor::canInsertFromMimeData(const QMimeData* source) const
{
    return source->hasText();
}

void CellEditor::insertFromMimeData(const QMimeData* source)
{
    insertTyped(source->text());
}

// Keys and input methods

bool CellEditor::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        event->accept(); // Escape ends the edit rather than closing the window
        return true;
    }
    return QTextEdit::event(event);
}

void CellEditor::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Escape:
        Q_EMIT endRequested();
        return;
    case Qt::Key_Tab:
        Q_EMIT moveRequested(1);
        return;
    case Qt::Key_Backtab:
        Q_EMIT moveRequested(-1);
        return;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        insertTyped(QStringLiteral("\n"));
        return;
    default:
        break;
    }
    QTextEdit::keyPressEvent(event);
}

QString CellEditor::textAsSeen() const
{
    const QTextBlock block = textCursor().block();
    const QString composed = block.layout()->preeditAreaText();
    return composed.isEmpty()
               ? m_text
               : QString(m_text).insert(block.position() + block.layout()->preeditAreaPosition(), composed);
}

void CellEditor::inputMethodEvent(QInputMethodEvent* event)
{
    acceptInput(*event);
    Q_EMIT composed();
}

void CellEditor::acceptInput(QInputMethodEvent& event)
{
    const QString commit = event.commitString();
    const QString clean = withoutForbiddenXmlCharacters(commit);
    if (clean == commit && std::none_of(clean.begin(), clean.end(), [](QChar c) { return endsLine(c.unicode()); })) {
        QTextEdit::inputMethodEvent(&event);
        return;
    }
    QInputMethodEvent rest(event.preeditString(), event.attributes());
    rest.setCommitString({}, event.replacementStart(), event.replacementLength());
    QTextEdit::inputMethodEvent(&rest);
    insertTyped(clean);
    event.accept();
}

QVariant CellEditor::inputMethodQuery(Qt::InputMethodQuery property) const
{
    return inputMethodQuery(property, {});
}

QVariant CellEditor::inputMethodQuery(Qt::InputMethodQuery property, const QVariant& argument) const
{
    QVariant answer = QTextEdit::inputMethodQuery(property, argument);
    if (property != Qt::ImCursorRectangle && property != Qt::ImAnchorRectangle) {
        return answer;
    }
    const QTextCursor caret = textCursor();
    const int place = property == Qt::ImCursorRectangle ? caret.position() : caret.anchor();
    const QRectF found = answer.toRectF(); // only as high as its font
    const double top = m_layout->blockBoundingRect(document()->findBlock(place)).top();
    return QRectF(found.left(), top, found.width(), m_layout->lineHeight());
}

// The pointer

void CellEditor::contextMenuEvent(QContextMenuEvent* event)
{
    Q_EMIT menuRequested(event->globalPos());
    event->accept();
}

void CellEditor::wheelEvent(QWheelEvent* event)
{
    QCoreApplication::sendEvent(parentWidget(), event); // the wheel scrolls the table
    event->accept();
}

void CellEditor::resizeEvent(QResizeEvent* event)
{
    m_layout->setViewSize(viewport()->size());
    QTextEdit::resizeEvent(event);
}
