// SPDX-License-Identifier: MIT
#include "widgets/DatePicker.h"

#include "dates/DateUtilities.h"
#include "widgets/PopupCalendar.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScreen>
#include <QShortcut>
#include <QStyle>
#include <QToolButton>
#include <QWheelEvent>

#include <algorithm>
#include <utility>

namespace {

const QDate firstDay(1, 1, 1);
const QDate lastDay(9999, 12, 31);
const QDate firstOfferedDay(1800, 1, 1);

constexpr int arrowWidth = 24; ///< points

QDate dayOf(Date date)
{
    return QDate::fromJulianDay(DateUtilities::julianDayFromDate(date));
}

} // namespace

DatePicker::DatePicker(QWidget* parent)
    : QAbstractSpinBox(parent), m_dayText(DateUtilities::localeDevice()), m_arrow(new QToolButton(this))
{
    setFrame(false);
    setButtonSymbols(NoButtons);
    m_arrow->setText(QStringLiteral("▾"));
    m_arrow->setFocusPolicy(Qt::NoFocus);
    m_arrow->setCursor(Qt::ArrowCursor);
    connect(m_arrow, &QToolButton::clicked, this, &DatePicker::openCalendar);
    connect(lineEdit(), &QLineEdit::textEdited, this, &DatePicker::takeTyped);
}

bool DatePicker::canShow(Date date)
{
    const QDate day = dayOf(date);
    return day >= firstDay && day <= lastDay;
}

Date DatePicker::dateValue() const
{
    return DateUtilities::dateByAddingDays(m_first, static_cast<int>(m_firstDay.daysTo(m_day)), 0, 0);
}

void DatePicker::setDateValue(Date date)
{
    m_first = date;
    m_firstDay = dayOf(date);
    m_day = m_firstDay;
    showText();
}

/// Chooses `day`, reporting a change; false when it cannot be chosen.
bool DatePicker::take(QDate day)
{
    if (!day.isValid() || day < std::min(firstOfferedDay, m_firstDay) || day > lastDay) {
        return false;
    }
    if (day != std::exchange(m_day, day)) {
        Q_EMIT dateValueChanged();
    }
    return true;
}

void DatePicker::chooseDay(QDate day)
{
    if (take(day)) {
        showText();
    }
}

void DatePicker::takeTyped(const QString& text)
{
    if (const std::optional<Date> date = m_dayText.dateFromText(text, m_first)) {
        take(dayOf(*date));
    }
}

void DatePicker::showText()
{
    lineEdit()->setText(m_dayText.textFromDate(dateValue()));
}

void DatePicker::stepBy(int steps)
{
    const DayText::Part part =
        m_dayText.partAt(text(), lineEdit()->hasSelectedText() ? 0 : lineEdit()->cursorPosition());
    const int days = part == DayText::Part::Day ? steps : 0;
    const int months = part == DayText::Part::Month ? steps : 0;
    const int years = part == DayText::Part::Year ? steps : 0;
    const int caret = lineEdit()->cursorPosition();
    const bool hadSelection = lineEdit()->hasSelectedText();
    chooseDay(dayOf(DateUtilities::dateByAddingDays(dateValue(), days, months, years)));
    lineEdit()->setCursorPosition(hadSelection ? 0 : caret);
}

void DatePicker::setColors(const QColor& text, const QColor& behind)
{
    QPalette colors = palette();
    colors.setColor(QPalette::Text, text);
    colors.setColor(QPalette::ButtonText, text); // the arrow's
    colors.setColor(QPalette::Highlight, text);
    colors.setColor(QPalette::HighlightedText, behind);
    setPalette(colors);
    lineEdit()->setPalette(colors); // under a style sheet it keeps the palette that it first inherited
    m_arrow->setPalette(colors);
}

QColor DatePicker::textColor() const
{
    return palette().color(QPalette::Text);
}

void DatePicker::resizeEvent(QResizeEvent* event)
{
    QAbstractSpinBox::resizeEvent(event);
    const QRect whole = rect();
    const QRect arrow(whole.right() - arrowWidth + 1, whole.top(), arrowWidth, whole.height());
    m_arrow->setGeometry(QStyle::visualRect(layoutDirection(), whole, arrow));
    lineEdit()->setGeometry(QStyle::visualRect(layoutDirection(), whole, whole.adjusted(0, 0, -arrowWidth, 0)));
}

void DatePicker::focusInEvent(QFocusEvent* event)
{
    QAbstractSpinBox::focusInEvent(event);
    if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason) {
        selectAll(); // typing replaces the day
    }
}

void DatePicker::focusOutEvent(QFocusEvent* event)
{
    QAbstractSpinBox::focusOutEvent(event);
    showText();
}

void DatePicker::keyPressEvent(QKeyEvent* event)
{
    const bool altDown = event->key() == Qt::Key_Down && (event->modifiers() & Qt::AltModifier);
    if (event->key() == Qt::Key_F4 || altDown) {
        openCalendar();
        return;
    }
    QAbstractSpinBox::keyPressEvent(event);
}

void DatePicker::wheelEvent(QWheelEvent* event)
{
    event->ignore(); // the wheel scrolls the table
}

void DatePicker::contextMenuEvent(QContextMenuEvent* event)
{
    event->ignore(); // the row's own menu opens
}

QCalendarWidget* DatePicker::makeCalendar()
{
    auto* calendar = new PopupCalendar(this);
    calendar->setPalette(window()->palette());
    calendar->setFirstDayOfWeek(m_firstDayOfWeek);
    calendar->setDateRange(std::min(firstOfferedDay, m_firstDay), lastDay);
    calendar->setSelectedDate(m_day);
    const auto choose = [this, calendar](QDate day) {
        chooseDay(day);
        calendar->close();
    };
    connect(calendar, &QCalendarWidget::clicked, this, choose);
    connect(calendar, &QCalendarWidget::activated, this, choose);
    connect(new QShortcut(Qt::Key_Escape, calendar), &QShortcut::activated, calendar, &QWidget::close);
    return calendar;
}

/// Opens below the control, or above it when there is no room on the screen.
void DatePicker::openCalendar()
{
    QCalendarWidget* calendar = makeCalendar();
    calendar->adjustSize();
    const QRect room = screen()->availableGeometry();
    const QRect control(mapToGlobal(QPoint()), size());
    const bool fitsBelow = control.bottom() + calendar->height() <= room.bottom();
    const int top = fitsBelow ? control.bottom() + 1 : control.top() - calendar->height();
    const int left = isRightToLeft() ? control.right() + 1 - calendar->width() : control.left();
    calendar->move(std::clamp(left, room.left(), std::max(room.left(), room.right() - calendar->width())),
                   std::max(room.top(), top));
    calendar->show();
    calendar->setFocus();
}
