// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>

/// The number of a day on the weekly and the monthly page, whose style rules size it. Today's is red and bold.
class DayNumber : public QLabel {
    Q_OBJECT

public:
    explicit DayNumber(QWidget* parent);

    /// To be called once the text is set: a screen reader says of it that it is today.
    void setToday(bool today);
    bool isToday() const { return m_today; }

    /// The colour of the number in the appearance of this moment.
    QColor textColor() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    bool m_today = false;
};
