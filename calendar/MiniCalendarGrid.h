// SPDX-License-Identifier: MIT
#pragma once

#include "calendar/CellGrid.h"

#include <QList>

class DayButton;

/// The mini calendar's seven weekday headers and its day buttons, tagged as MonthGrid.h says. The arrow keys move the
/// focus from day to day, past the month's ends into the months beside it; Page Up and Page Down step by a month.
class MiniCalendarGrid : public CellGrid {
    Q_OBJECT

public:
    enum class Step { Back, Forward };

    explicit MiniCalendarGrid(QWidget* parent = nullptr);

    /// In the order of their tags.
    const QList<DayButton*>& dayButtons() const { return m_days; }

    /// Tells the grid that its buttons were filled anew, so that one of the shown days takes the tab key's focus.
    void daysDidChange();

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    void dayPressed(DayButton& day);

    /// The month beside the one shown is wanted; when the signal returns, the buttons show it.
    void monthStepWanted(MiniCalendarGrid::Step step);

private:
    QList<DayButton*> shownDays() const;
    bool handleKey(int key, DayButton& from);
    void moveFocus(DayButton& from, int days);
    void stepMonth(Step step, int dayToFocus);
    void focusDay(qsizetype day);
    void setTabStop(DayButton* day);

    QList<DayButton*> m_days;
    DayButton* m_tabStop = nullptr;
};
