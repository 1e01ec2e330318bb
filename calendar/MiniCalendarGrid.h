// SPDX-License-Identifier: MIT
#pragma once

#include "calendar/CellGrid.h"
#include "dates/MonthGrid.h"

#include <QList>

#include <optional>

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

    /// Tells the grid that its buttons were filled anew, with the days of `month`, so that one of them takes the tab
    /// key's focus: the day with the focus, else the one chosen last, else `today` (0: in another month), else the
    /// first.
    void daysDidChange(MonthGrid::YearMonth month, int today);

    /// The tab key leads to today again, from the next daysDidChange on; the focus goes there too if it is on a day.
    void forgetChosenDay();

    bool isSpoken(const QWidget& cell) const override;

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    void dayPressed(DayButton& day);

    /// The month beside the one shown is wanted; when the signal returns, the buttons show it.
    void monthStepWanted(MiniCalendarGrid::Step step);

private:
    /// A day that the user went to. Passing by with the tab key is no such choice.
    struct Chosen {
        MonthGrid::YearMonth month;
        int day;
    };

    QList<DayButton*> shownDays() const;
    DayButton* shownDay(int day) const;
    bool handleKey(int key, DayButton& from);
    void moveFocus(DayButton& from, int days);
    void stepMonth(Step step, int dayToFocus);
    void focusDay(int day);
    void choose(DayButton& day);
    void setTabStop(DayButton* day);

    QList<DayButton*> m_days;
    MonthGrid::YearMonth m_month;
    std::optional<Chosen> m_chosen;
    bool m_wantsToday = false;
    DayButton* m_tabStop = nullptr;
};
