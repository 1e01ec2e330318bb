// SPDX-License-Identifier: MIT
#include "widgets/PopupCalendar.h"

#include "dates/Clock.h"
#include "dates/DateUtilities.h"

#include <QBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QTextCharFormat>
#include <QToolButton>
#include <unicode/calendar.h>

#include <algorithm>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>

namespace {

constexpr QSize smallestSize(272, 216);

/// Qt's calendar for a locale; nullopt when only the headings and cells can follow the locale's calendar.
std::optional<QCalendar::System> systemOf(const std::string& locale)
{
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::Calendar> calendar(icu::Calendar::createInstance(icuLocale(locale), status));
    const std::string_view type = U_SUCCESS(status) ? calendar->getType() : "gregorian";
    if (type == "gregorian") {
        return QCalendar::System::Gregorian;
    }
    return type == "persian" ? std::optional(QCalendar::System::Jalali) : std::nullopt;
}

Date dateOf(QDate day)
{
    const YearMonthDay numbers = DateUtilities::yearMonthDayFromJulianDay(day.toJulianDay());
    return DateUtilities::dateFromYear(numbers.year, numbers.month, numbers.day);
}

} // namespace

PopupCalendar::PopupCalendar(QWidget* parent)
    : QCalendarWidget(parent), m_formatter(DateUtilities::copyFormatterForLocaleDevice())
{
    setWindowFlag(Qt::Popup);
    setAttribute(Qt::WA_DeleteOnClose);
    setLocale(QLocale(QString::fromStdString(DateEnvironment::localePair().preferredLanguages.front())));
    setVerticalHeaderFormat(NoVerticalHeader);
    setMinimumSize(smallestSize);
    for (const Qt::DayOfWeek day : {Qt::Saturday, Qt::Sunday}) {
        setWeekdayTextFormat(day, QTextCharFormat()); // weekends are not highlighted
    }
    const std::pair<QString, QString> steps[] = {{QStringLiteral("qt_calendar_prevmonth"), QStringLiteral("‹")},
                                                 {QStringLiteral("qt_calendar_nextmonth"), QStringLiteral("›")}};
    for (const auto& [name, sign] : steps) {
        if (auto* button = findChild<QToolButton*>(name)) {
            button->setIcon(QIcon());
            button->setText(sign);
        }
    }
    if (const auto system = systemOf(DateUtilities::localeDevice())) {
        setCalendar(QCalendar(*system));
    } else {
        putHeadingInPlace();
    }
}

/// Replaces the buttons that name a Gregorian month and year by a heading.
void PopupCalendar::putHeadingInPlace()
{
    auto* month = findChild<QToolButton*>(QStringLiteral("qt_calendar_monthbutton"));
    auto* year = findChild<QToolButton*>(QStringLiteral("qt_calendar_yearbutton"));
    auto* bar = month ? qobject_cast<QBoxLayout*>(month->parentWidget()->layout()) : nullptr;
    if (!bar || !year) {
        return;
    }
    m_heading = new QLabel(month->parentWidget());
    m_heading->setForegroundRole(QPalette::Text); // as the style sheet colours the buttons
    m_heading->setFont(month->font());
    bar->insertWidget(bar->indexOf(month), m_heading);
    month->hide();
    year->hide();
    connect(this, &QCalendarWidget::currentPageChanged, this, &PopupCalendar::showHeading);
    showHeading();
}

void PopupCalendar::showHeading()
{
    const QDate first(yearShown(), monthShown(), 1);
    const Date begin = dateOf(first);
    const Date end = dateOf(first.addDays(first.daysInMonth() - 1));
    m_formatter.setDateFormat(QStringLiteral("LLLL y"));
    QString heading = m_formatter.stringFromDate(begin);
    if (heading != m_formatter.stringFromDate(end)) {
        m_formatter.setDateFormat(QStringLiteral("LLL y")); // two months have to fit
        heading = m_formatter.stringFromDate(begin) + QStringLiteral(" – ") + m_formatter.stringFromDate(end);
    }
    m_heading->setText(heading);
    setMinimumWidth(std::max(smallestSize.width(), m_heading->parentWidget()->sizeHint().width()));
    m_formatter.setDateFormat(QStringLiteral("d")); // the format of the cells
}

void PopupCalendar::paintCell(QPainter* painter, const QRect& rect, QDate day) const
{
    if (!m_heading) {
        QCalendarWidget::paintCell(painter, rect, day);
        return;
    }
    const bool isOffered = day >= minimumDate() && day <= maximumDate();
    const bool isOfPage = day.month() == monthShown() && day.year() == yearShown();
    const QPalette::ColorGroup group = isOffered && isOfPage ? QPalette::Active : QPalette::Disabled;
    const bool isSelected = day == selectedDate();
    if (isSelected) {
        painter->fillRect(rect, palette().color(group, QPalette::Highlight));
    }
    painter->setPen(palette().color(group, isSelected ? QPalette::HighlightedText : QPalette::Text));
    painter->drawText(rect, Qt::AlignCenter, m_formatter.stringFromDate(dateOf(day)));
}
