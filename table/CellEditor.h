// SPDX-License-Identifier: MIT
#pragma once

#include <QTextEdit>

class FixedLineLayout;

/// The text field that stands in a table's cell while its text is edited: plain text, never wrapped, one fixed height
/// a line. Return adds a line; Escape asks for the end of the edit, Tab and Backtab for the next cell and the one
/// before.
///
/// A text is read back as it was written but for what was edited: every newline character that was not touched (CR, LF,
/// CR LF, U+2028, ...) is still the one it was, through undo and redo as well. New lines are LF; pasted ones stay what
/// they are. Characters that XML 1.0 cannot carry are left out of what is typed or pasted.
class CellEditor : public QTextEdit {
    Q_OBJECT

public:
    /// `lineHeight` in points. A turn of the wheel goes to `parent`.
    CellEditor(const QString& text, double lineHeight, QWidget* parent);

    const QString& text() const { return m_text; }

    /// The text with what an input method composes at the caret, as the user sees it.
    QString textAsSeen() const;

    /// Whether the user has changed the text, even if it is now the first one again.
    bool isEdited() const { return m_edited; }

    /// Adds `text` at the end as if it had been typed there; the caret and what is selected stay.
    void addAtEnd(const QString& text);

    /// The line at the top of the editor. The editor stays at that line until told otherwise: the table that holds it
    /// scrolls, not the editor.
    void setFirstLine(int line);

    int caretLine() const;

    QVariant inputMethodQuery(Qt::InputMethodQuery property) const override;

    /// The same; an input method asks for this one by its name. Places are those of whole lines, so that its window
    /// stands clear of the line that is written.
    Q_INVOKABLE QVariant inputMethodQuery(Qt::InputMethodQuery property, const QVariant& argument) const;

Q_SIGNALS:
    void edited();   ///< text() is another
    void composed(); ///< textAsSeen() may be another
    void endRequested();
    void moveRequested(int step); ///< 1 to the next cell, -1 to the one before
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
    void takeIn(QInputMethodEvent& event);
    void noticeChange();

    FixedLineLayout* m_layout;
    QString m_text;
    bool m_edited = false;
};
