// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>

/// The number of a day on the weekly and the monthly page; the style rules set its size. Today's is red and bold.
class DayNumber : public QLabel {
    Q_OBJECT

public:
    explicit DayNumber(QWidget* parent);

    /// Must be called after the text is set, which a screen reader then says together with "today".
    void setToday(bool today);
    bool isToday() const { return m_today; }

    /// The number's colour in the present appearance.
    QColor textColor() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    bool m_today = false;
};
