// SPDX-License-Identifier: MIT
#pragma once

#include <QPlainTextEdit>

/// The note of a day on the weekly and the monthly page, read-only but selectable. It wraps, and scrolls when it is
/// longer than the field. Return shows the whole note in a frame of its own; a tool tip shows a note that does not fit.
class NoteField : public QPlainTextEdit {
    Q_OBJECT

public:
    explicit NoteField(QWidget* parent = nullptr);

    /// The tab key skips a field without a note.
    void setNote(const QString& note);
    QString note() const { return m_note; }

    /// Whether some of the note is out of sight.
    bool isCut() const;

    /// The height of a line.
    int lineHeight() const;

    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void showWholeNote();

    QString m_note;
};
