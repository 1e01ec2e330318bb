// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

class QPlainTextEdit;

/// Makes `field` read-only but selectable by pointer and keyboard; the tab key leaves it. Each paragraph is aligned to
/// the edge where its own direction begins.
void makeReadable(QPlainTextEdit& field);

/// A whole note under its day, in a frame that closes on Escape or when something else is clicked. It is a window
/// rather than a pop-up, since pop-ups are not reported to screen readers.
class WholeNote : public QDialog {
    Q_OBJECT

public:
    WholeNote(const QString& day, const QString& note, QWidget* parent);

    /// Shows the frame over `place`, in screen coordinates, and inside the parent's window as far as there is room.
    void showOver(const QRect& place);

protected:
    bool event(QEvent* event) override;

private:
    QPlainTextEdit* m_text;
};
