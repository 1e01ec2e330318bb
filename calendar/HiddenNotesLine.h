// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QLabel;
class QPushButton;

/// The line of a page that does not show all its notes: how many there are, and a button that brings them back. Out of
/// sight while it has nothing to say.
class HiddenNotesLine : public QWidget {
    Q_OBJECT

public:
    explicit HiddenNotesLine(QWidget* parent = nullptr);

    /// An empty text takes the line out of sight.
    void setText(const QString& text);

Q_SIGNALS:
    void showAllPressed();

private:
    QLabel* m_text;
    QPushButton* m_showAll;
};
