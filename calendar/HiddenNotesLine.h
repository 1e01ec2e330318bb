// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include <cstddef>

class QLabel;
class QPushButton;

/// The line on a page that does not show all its notes: how many of them it shows, and a button that shows the rest.
/// Hidden while its text is empty.
class HiddenNotesLine : public QWidget {
    Q_OBJECT

public:
    explicit HiddenNotesLine(QWidget* parent = nullptr);

    /// Says with `format` that `shown` of `all` notes are shown, unless all are.
    void setCounts(const QString& format, std::size_t shown, std::size_t all);

Q_SIGNALS:
    void showAllPressed();

private:
    void setText(const QString& text);

    QLabel* m_text;
    QPushButton* m_showAll;
};
