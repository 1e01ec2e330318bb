// SPDX-License-Identifier: MIT
#pragma once

#include <QTextEdit>

class FixedLineLayout;

/// The text field in a table's cell while its text is edited: plain text, never wrapped, with one fixed height for all
/// lines. Return adds a line; Escape asks to end the edit, Tab and Backtab to move to the next or the previous cell.
///
/// Except for what was edited, a text is read back unchanged: every newline character that was not touched (CR, LF, CR
/// LF, U+2028, ...) keeps its kind, also through undo and redo. New lines are LF; pasted ones keep their kind.
/// Characters that XML 1.0 cannot represent are removed from what is typed or pasted.
class CellEditor : public QTextEdit {
    Q_OBJECT

public:
    /// `lineHeight` is in points. Turns of the mouse wheel are passed to `parent`.
    CellEditor(const QString& text, double lineHeight, QWidget* parent);

    const QString& text() const { return m_text; }

    /// The text including what an input method is composing at the caret, as the user sees it.
    QString textAsSeen() const;

    /// Whether the user has changed the text, even if only back to the original.
    bool isEdited() const { return m_edited; }

    /// Adds `text` at the end as if it had been typed there; caret and selection stay.
    void addAtEnd(const QString& text);

    /// Sets the line at the top of the editor. The editor stays there until told otherwise: the table that holds it
    /// scrolls, not the editor.
    void setFirstLine(int line);

    int caretLine() const;

    QVariant inputMethodQuery(Qt::InputMethodQuery property) const override;

    /// The same; input methods call this one by name. Rectangles are as high as whole lines, so that an input method's
    /// window does not cover the line being written.
    Q_INVOKABLE QVariant inputMethodQuery(Qt::InputMethodQuery property, const QVariant& argument) const;

Q_SIGNALS:
    void edited();   ///< text() has changed
    void composed(); ///< textAsSeen() may have changed
    void endRequested();
    void moveRequested(int step); ///< 1 to the next cell, -1 to the previous one
    void menuRequested(QPoint globalPosition);

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
    QMimeData* createMimeDataFromSelection() const override;
    bool canInsertFromMimeData(const QMimeData* source) const override;
    bool event(QEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void insertFromMimeData(const QMimeData* source) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    QString textBetween(int from, int to) const;
    void insertTyped(const QString& text);
    void acceptInput(QInputMethodEvent& event);
    void noticeChange();

    FixedLineLayout* m_layout;
    QString m_text;
    bool m_edited = false;
};
