// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

class QPlainTextEdit;

/// Makes `field` one to read, select and copy in, by pointer and by keys, that the tab key leaves. Each paragraph
/// stands at the edge at which its own direction begins.
void makeReadable(QPlainTextEdit& field);

/// A whole note under its day, in a frame that goes with Escape or when something else is clicked. It is a window of
/// its own, not a pop-up: screen readers are not told of pop-ups.
class WholeNote : public QDialog {
    Q_OBJECT

public:
    WholeNote(const QString& day, const QString& note, QWidget* parent);

    /// Shows the frame over `place` of the screen, inside the parent's window as far as that has room.
    void showOver(const QRect& place);

protected:
    bool event(QEvent* event) override;

private:
    QPlainTextEdit* m_text;
};
