// SPDX-License-Identifier: MIT
#pragma once

#include "calendar/CellGrid.h"
#include "dates/MonthGrid.h"

#include <QList>

#include <optional>

class DayButton;

/// The mini calendar's seven weekday headers and its day buttons, with the tags of MonthGrid.h. The arrow keys move the
/// focus from day to day, also into the neighbouring months; Page Up and Page Down step by a month.
class MiniCalendarGrid : public CellGrid {
    Q_OBJECT

public:
    enum class Step { Back, Forward };

    explicit MiniCalendarGrid(QWidget* parent = nullptr);

    /// In the order of their tags.
    const QList<DayButton*>& dayButtons() const { return m_days; }

    /// Must be called after the buttons were filled with the days of `month`, to choose the one at which the tab key
    /// stops: the focused day, else the one chosen last, else `today` (0 in another month), else the first.
    void daysDidChange(MonthGrid::YearMonth month, int today);

    /// Makes the tab key stop at today again from the next daysDidChange on; the focus moves there too if it is on a
    /// day.
    void forgetChosenDay();

    bool isSpoken(const QWidget& cell) const override;

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    void dayPressed(DayButton& day);

    /// The previous or next month is wanted; the buttons must show it when the signal returns.
    void monthStepWanted(MiniCalendarGrid::Step step);

private:
    /// A day that the user moved to. Merely passing through with the tab key does not choose a day.
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
