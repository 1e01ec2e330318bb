// SPDX-License-Identifier: MIT
#pragma once

#include "app/PreferenceKeys.h"
#include "calendar/MiniCalendarGrid.h"
#include "support/AppFixture.h"

#include <vector>

/// The clock of the fixture stands at 15 March 2024, a Friday. March 2024 begins on a Friday, February 2024 on a
/// Thursday, September 2024 on a Sunday, June 2024 on a Saturday, February 2015 on a Sunday (Python's calendar).
class MiniCalendarTest : public AppFixture {
protected:
    DayButton& cell(int number) { return *ui->miniCalendarGrid->dayButtons().at(number - 1); }

    QStringList titles()
    {
        QStringList all;
        for (const DayButton* button : ui->miniCalendarGrid->dayButtons()) {
            all.append(button->title());
        }
        return all;
    }

    std::vector<int> daysInState(DayButton::State state)
    {
        std::vector<int> days;
        for (const DayButton* button : ui->miniCalendarGrid->dayButtons()) {
            if (button->state() == state && !button->title().isEmpty()) {
                days.push_back(button->title().toInt());
            }
        }
        return days;
    }

    std::vector<int> redDays()
    {
        std::vector<int> days;
        for (const DayButton* button : ui->miniCalendarGrid->dayButtons()) {
            if (button->titleColor().isValid()) {
                EXPECT_GT(button->titleColor().red(), 2 * button->titleColor().green());
                days.push_back(button->title().toInt());
            }
        }
        return days;
    }

    QStringList headers()
    {
        QStringList texts;
        for (int tag = 70; tag <= 76; ++tag) {
            texts.append(ui->miniCalendarGrid->viewWithTag<QLabel>(tag)->text());
        }
        return texts;
    }

    QString shownMonth() { return ui->miniCalMonthName->text() + u' ' + ui->miniCalYear->text(); }

    void setWeekStart(int preference) { host.userDefaults.stored.insert(PreferenceKeys::weekStart, preference); }

    /// Steps by the arrow buttons until that month of the Gregorian calendar shows.
    void showMonth(int year, int month)
    {
        const auto press = [](QAbstractButton* back, QAbstractButton* forward, int steps) {
            for (; steps < 0; ++steps) {
                back->click();
            }
            for (; steps > 0; --steps) {
                forward->click();
            }
        };
        const MonthGrid::YearMonth shown = app->fromMiniCalGetYearMonth();
        press(ui->backOneYearOnMiniCal, ui->forwardOneYearOnMiniCal, year - shown.year);
        press(ui->backOneMonthOnMiniCal, ui->forwardOneMonthOnMiniCal, month - shown.month);
    }

    void pressDay(int dayOfMonth) { app->dayBtnAction(dayButton(dayOfMonth)); }
};
