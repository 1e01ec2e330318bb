// SPDX-License-Identifier: MIT
#include "dates/DatePicker.h"

#include "dates/Clock.h"
#include "dates/DateUtilities.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionComboBox>
#include <QTextCharFormat>
#include <QToolButton>
#include <QWheelEvent>
#include <unicode/calendar.h>

#include <algorithm>
#include <memory>
#include <utility>

namespace {

constexpr double arrowSize = 4; ///< points from the arrow's tip to its side
constexpr double arrowPen = 1.5;
constexpr QSize calendarSize(272, 216);

const QDate firstDay(100, 1, 1);
const QDate lastDay(9999, 12, 31);

/// The first day that the keys and the calendar offer; a date before it can be kept and moved all the same.
const QDate firstOfferedDay(1800, 1, 1);

QDate dayOf(Date date)
{
    return QDate::fromJulianDay(DateUtilities::julianDayFromDate(date));
}

std::string language()
{
    return DateEnvironment::localePair().preferredLanguages.front();
}

QCalendar calendarOf(const std::string& languageIdentifier)
{
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::Calendar> calendar(icu::Calendar::createInstance(icuLocale(languageIdentifier), status));
    const bool persian = U_SUCCESS(status) && qstrcmp(calendar->getType(), "persian") == 0;
    return QCalendar(persian ? QCalendar::System::Jalali : QCalendar::System::Gregorian);
}

QString shortFormatWithWholeYear(const QLocale& locale)
{
    QString format = locale.dateFormat(QLocale::ShortFormat);
    if (!format.contains(QStringLiteral("yyyy"))) {
        format.replace(QStringLiteral("yy"), QStringLiteral("yyyy"));
    }
    return format;
}

} // namespace

DatePicker::DatePicker(QWidget* parent) : QDateEdit(parent)
{
    setTimeSpec(Qt::UTC); // where every day has its midnight
    const QLocale locale(QString::fromStdString(language()));
    setLocale(locale);
    setCalendar(calendarOf(language()));
    setDisplayFormat(shortFormatWithWholeYear(locale));
    setDateRange(firstOfferedDay, lastDay);
    setFrame(false);
    setCalendarPopup(true);
    setCalendarWidget(makeCalendar());
    connect(this, &QDateEdit::dateChanged, this, &DatePicker::dateValueChanged);
}

QCalendarWidget* DatePicker::makeCalendar()
{
    auto* popup = new QCalendarWidget(this);
    popup->setLocale(locale());
    popup->setCalendar(calendar());
    popup->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    popup->setMinimumSize(calendarSize);
    for (const Qt::DayOfWeek day : {Qt::Saturday, Qt::Sunday}) {
        popup->setWeekdayTextFormat(day, QTextCharFormat()); // no day of a week is an alarm
    }
    for (const auto& [name, sign] :
         {std::pair("qt_calendar_prevmonth", u'‹'), std::pair("qt_calendar_nextmonth", u'›')}) {
        if (auto* button = popup->findChild<QToolButton*>(QString::fromLatin1(name))) {
            button->setIcon(QIcon());
            button->setText(QString(QChar(sign)));
        }
    }
    return popup;
}

bool DatePicker::canShow(Date date)
{
    const QDate day = dayOf(date);
    return day >= firstDay && day <= lastDay;
}

Date DatePicker::dateValue() const
{
    return DateUtilities::dateByAddingDays(m_value, static_cast<int>(m_day.daysTo(date())), 0, 0);
}

void DatePicker::setDateValue(Date date)
{
    m_value = date;
    m_day = dayOf(date);
    setMinimumDate(std::min(firstOfferedDay, m_day));
    setDate(m_day);
}

void DatePicker::setColors(const QColor& text, const QColor& behind)
{
    QPalette colors = palette();
    colors.setColor(QPalette::Text, text);
    colors.setColor(QPalette::Highlight, text);
    colors.setColor(QPalette::HighlightedText, behind);
    setPalette(colors);
    calendarWidget()->setPalette(QPalette());
}

QColor DatePicker::textColor() const
{
    return palette().color(QPalette::Text);
}

void DatePicker::setFirstDayOfWeek(Qt::DayOfWeek day)
{
    calendarWidget()->setFirstDayOfWeek(day);
}

void DatePicker::keyPressEvent(QKeyEvent* event)
{
    const bool altDown = event->key() == Qt::Key_Down && (event->modifiers() & Qt::AltModifier);
    if (event->key() == Qt::Key_F4 || altDown) {
        openCalendar();
        return;
    }
    QDateEdit::keyPressEvent(event);
}

QRect DatePicker::arrowRect() const
{
    QStyleOptionComboBox option;
    option.initFrom(this);
    option.editable = true;
    option.frame = hasFrame();
    return style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxArrow, this);
}

void DatePicker::paintEvent(QPaintEvent* event)
{
    QDateEdit::paintEvent(event);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(textColor(), arrowPen, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const QPointF middle = QRectF(arrowRect()).center();
    painter.drawPolyline(QPolygonF{middle + QPointF(-arrowSize, -arrowSize / 2), middle + QPointF(0, arrowSize / 2),
                                   middle + QPointF(arrowSize, -arrowSize / 2)});
}

/// The control opens its calendar for a press on its arrow alone.
void DatePicker::openCalendar()
{
    const QPointF arrow = arrowRect().center();
    QMouseEvent press(QEvent::MouseButtonPress, arrow, mapToGlobal(arrow), Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QApplication::sendEvent(this, &press);
}

void DatePicker::wheelEvent(QWheelEvent* event)
{
    event->ignore(); // the wheel scrolls the table
}
