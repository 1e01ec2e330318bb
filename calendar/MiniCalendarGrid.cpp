// SPDX-License-Identifier: MIT
#include "calendar/MiniCalendarGrid.h"

#include "calendar/DayButton.h"
#include "dates/MonthGrid.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>

#include <algorithm>
#include <utility>

MiniCalendarGrid::MiniCalendarGrid(QWidget* parent) : CellGrid(parent)
{
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(2);
    for (int column = 0; column < MonthGrid::DaysPerWeek; ++column) {
        auto* header = new QLabel(this);
        header->setAlignment(Qt::AlignCenter);
        header->setTextFormat(Qt::PlainText);
        header->setProperty("secondary", true);
        header->setProperty("small", true);
        setTag(*header, MonthGrid::miniHeaderTag(column));
        grid->addWidget(header, 0, column);
        grid->setColumnStretch(column, 1);
    }
    for (int cell = MonthGrid::FirstCell; cell <= MonthGrid::LastCell; ++cell) {
        auto* day = new DayButton(this);
        day->setObjectName(QStringLiteral("day%1").arg(cell));
        setTag(*day, MonthGrid::miniDayTag(cell));
        day->installEventFilter(this);
        connect(day, &DayButton::clicked, this, [this, day] { Q_EMIT dayPressed(*day); });
        m_days.append(day);
        const int index = cell - MonthGrid::FirstCell;
        grid->addWidget(day, 1 + index / MonthGrid::DaysPerWeek, index % MonthGrid::DaysPerWeek);
    }
}

void MiniCalendarGrid::daysDidChange(MonthGrid::YearMonth month, int today)
{
    const bool isOtherMonth = std::exchange(m_month, month) != month;
    const QList<DayButton*> shown = shownDays();
    if (shown.isEmpty()) {
        return;
    }
    const bool hasFocus = m_tabStop && m_tabStop->hasFocus();
    if (std::exchange(m_wantsToday, false) || !hasFocus) {
        const bool isChosen = m_chosen && m_chosen->month == month;
        setTabStop(shownDay(isChosen ? m_chosen->day : std::max(today, 1)));
        if (hasFocus) {
            m_tabStop->setFocus(Qt::OtherFocusReason);
        }
    } else if (shown.contains(m_tabStop)) {
        if (m_chosen || isOtherMonth) {
            choose(*m_tabStop);
        }
    } else {
        const bool wasBefore = m_days.indexOf(m_tabStop) < m_days.indexOf(shown.first());
        DayButton& nearest = wasBefore ? *shown.first() : *shown.last();
        choose(nearest);
        nearest.setFocus(Qt::OtherFocusReason); // the focused cell is blank now; the keys go on from the nearest day
    }
}

void MiniCalendarGrid::forgetChosenDay()
{
    m_chosen.reset();
    m_wantsToday = true;
}

bool MiniCalendarGrid::isSpoken(const QWidget& cell) const
{
    const auto* day = qobject_cast<const DayButton*>(&cell);
    return CellGrid::isSpoken(cell) && (!day || !day->isTransparent());
}

bool MiniCalendarGrid::eventFilter(QObject* watched, QEvent* event)
{
    auto* day = qobject_cast<DayButton*>(watched);
    if (day && day != m_tabStop && event->type() == QEvent::FocusIn && !day->title().isEmpty()) {
        choose(*day);
    } else if (day && event->type() == QEvent::KeyPress) {
        const auto* press = static_cast<QKeyEvent*>(event);
        const bool plain = (press->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
        if (plain && handleKey(press->key(), *day)) {
            return true;
        }
    }
    return CellGrid::eventFilter(watched, event);
}

QList<DayButton*> MiniCalendarGrid::shownDays() const
{
    QList<DayButton*> shown;
    std::ranges::copy_if(m_days, std::back_inserter(shown),
                         [](const DayButton* day) { return !day->title().isEmpty(); });
    return shown;
}

/// The button of `day`, which is clamped to the month; null while no month is shown.
DayButton* MiniCalendarGrid::shownDay(int day) const
{
    const QList<DayButton*> shown = shownDays();
    return shown.isEmpty() ? nullptr : shown.at(std::clamp<qsizetype>(day, 1, shown.size()) - 1);
}

bool MiniCalendarGrid::handleKey(int key, DayButton& from)
{
    const int forward = layoutDirection() == Qt::RightToLeft ? -1 : 1;
    const int day = static_cast<int>(shownDays().indexOf(&from)) + 1;
    switch (key) {
    case Qt::Key_Left:
        moveFocus(from, -forward);
        return true;
    case Qt::Key_Right:
        moveFocus(from, forward);
        return true;
    case Qt::Key_Up:
        moveFocus(from, -MonthGrid::DaysPerWeek);
        return true;
    case Qt::Key_Down:
        moveFocus(from, MonthGrid::DaysPerWeek);
        return true;
    case Qt::Key_PageUp:
        stepMonth(Step::Back, day);
        return true;
    case Qt::Key_PageDown:
        stepMonth(Step::Forward, day);
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        from.click();
        return true;
    default:
        return false;
    }
}

void MiniCalendarGrid::moveFocus(DayButton& from, int days)
{
    const QList<DayButton*> shown = shownDays();
    const int count = static_cast<int>(shown.size());
    const int index = static_cast<int>(shown.indexOf(&from));
    const int target = index + days;
    if (index < 0) { // a click gave the focus to a blank cell
        return;
    }
    if (target < 0) {
        Q_EMIT monthStepWanted(Step::Back);
        focusDay(static_cast<int>(shownDays().size()) + target + 1);
    } else if (target >= count) {
        Q_EMIT monthStepWanted(Step::Forward);
        focusDay(target - count + 1);
    } else {
        focusDay(target + 1);
    }
}

void MiniCalendarGrid::stepMonth(Step step, int dayToFocus)
{
    Q_EMIT monthStepWanted(step);
    focusDay(dayToFocus);
}

void MiniCalendarGrid::focusDay(int day)
{
    if (DayButton* button = shownDay(day)) {
        button->setFocus(Qt::OtherFocusReason);
    }
}

void MiniCalendarGrid::choose(DayButton& day)
{
    m_chosen = {.month = m_month, .day = static_cast<int>(shownDays().indexOf(&day)) + 1};
    setTabStop(&day);
}

/// The tab key stops at one day only; the arrow keys move on from there.
void MiniCalendarGrid::setTabStop(DayButton* day)
{
    m_tabStop = day;
    for (DayButton* each : std::as_const(m_days)) {
        each->setFocusPolicy(each->title().isEmpty() ? Qt::NoFocus : each == day ? Qt::StrongFocus : Qt::ClickFocus);
    }
}
