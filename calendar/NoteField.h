// SPDX-License-Identifier: MIT
#pragma once

#include <QPlainTextEdit>

/// The note of a day on the weekly and the monthly page: to be read, selected and copied, never changed. It wraps, and
/// scrolls when it is longer than the field. Return shows the whole note in a frame of its own, the pointer shows what
/// does not fit.
class NoteField : public QPlainTextEdit {
    Q_OBJECT

public:
    explicit NoteField(QWidget* parent = nullptr);

    /// A field without a note is passed over by the tab key.
    void setNote(const QString& note);
    QString note() const { return m_note; }

    /// Whether some of the note is out of sight.
    bool isCut() const;

    /// The height of one of its lines.
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
