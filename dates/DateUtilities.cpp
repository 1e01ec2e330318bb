// SPDX-License-Identifier: MIT
#include "dates/DateUtilities.h"

#include "dates/Clock.h"
#include "dates/IcuTypes.h"
#include "text/IntegerValue.h"

#include <unicode/calendar.h>
#include <unicode/gregocal.h>

#include <memory>

namespace {

/// Creating a calendar takes less than a microsecond, so nothing is gained by keeping one.
std::unique_ptr<icu::Calendar> currentCalendar()
{
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::Calendar> calendar(
        icu::Calendar::createInstance(icuLocale(DateEnvironment::localePair().currentLocale), status));
    calendar->setRepeatedWallTimeOption(UCAL_WALLTIME_FIRST);
    return calendar;
}

std::unique_ptr<icu::Calendar> currentCalendar(Date date)
{
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::Calendar> calendar = currentCalendar();
    calendar->setTime(udate(date), status);
    return calendar;
}

/// The current calendar in a zone that skips no hour and no day.
std::unique_ptr<icu::Calendar> calendarWithoutZone()
{
    std::unique_ptr<icu::Calendar> calendar = currentCalendar();
    calendar->setTimeZone(*icu::TimeZone::getGMT());
    return calendar;
}

int field(const icu::Calendar& calendar, UCalendarDateFields which)
{
    UErrorCode status = U_ZERO_ERROR;
    return calendar.get(which, status);
}

YearMonthDay fieldsOf(const icu::Calendar& calendar)
{
    return {field(calendar, UCAL_YEAR), field(calendar, UCAL_MONTH) + 1, field(calendar, UCAL_DAY_OF_MONTH)};
}

Date dateOf(const icu::Calendar& calendar)
{
    UErrorCode status = U_ZERO_ERROR;
    return dateFromUDate(calendar.getTime(status));
}

int gregorianField(Date date, UCalendarDateFields which)
{
    UErrorCode status = U_ZERO_ERROR;
    icu::GregorianCalendar calendar(icuLocale(DateEnvironment::localePair().currentLocale), status);
    calendar.setTime(udate(date), status);
    return field(calendar, which);
}

QString styleFromDate(Date date, DateFormatter::Style style)
{
    DateFormatter formatter;
    formatter.setDateStyle(style);
    return formatter.stringFromDate(date);
}

QString patternFromDate(Date date, QStringView pattern)
{
    DateFormatter formatter;
    formatter.setDateFormat(pattern.toString());
    return formatter.stringFromDate(date);
}

/// The entry of `symbols` for the month of `date`; empty for a month that the list does not have.
QString monthSymbol(Date date, const QStringList& symbols)
{
    return symbols.value(integerValue(DateUtilities::monthFromDate(date)) - 1);
}

std::int64_t indexInList(const QStringList& list, const QString& name)
{
    const qsizetype index = list.indexOf(name);
    return index < 0 ? DateUtilities::NotFound : index;
}

/// Moves `calendar` by calendar days rather than by multiples of 24 hours, because a zone may have left out a day.
void addDays(icu::Calendar& calendar, int days)
{
    if (days == 0) {
        return; // setting a field would turn the second of two repeated times into the first
    }
    UErrorCode status = U_ZERO_ERROR;
    const UDate start = calendar.getTime(status);
    const int wanted = field(calendar, UCAL_JULIAN_DAY) + days;
    calendar.set(UCAL_JULIAN_DAY, wanted);
    if (days < 0 && field(calendar, UCAL_JULIAN_DAY) > wanted) { // that day was left out: go one further back
        calendar.setTime(start, status);
        static_cast<void>(
            field(calendar, UCAL_JULIAN_DAY)); // computes the fields, so that the time of day survives the set below
        calendar.set(UCAL_JULIAN_DAY, wanted - 1);
    }
}

QString twoDigits(int number)
{
    return number > 9 ? QString::number(number) : u'0' + QString::number(number);
}

} // namespace

// Days are counted on the calendar, not by dividing the seconds between their starts: after a day that begins at one
// o'clock the next begins less than 24 hours later.
int DateUtilities::daysBetweenDate(Date dateA, Date dateB)
{
    return field(*currentCalendar(dateB), UCAL_JULIAN_DAY) - field(*currentCalendar(dateA), UCAL_JULIAN_DAY);
}

Date DateUtilities::dateFromYYMMDDStr(const QString& compactDay)
{
    const QStringView text(compactDay);
    return dateFromYear(integerValue(text.mid(0, 4)), integerValue(text.mid(4, 2)), integerValue(text.mid(6)));
}

YearMonthDay DateUtilities::yearMonthDayFromDate(Date date)
{
    return fieldsOf(*currentCalendar(date));
}

QString DateUtilities::YYYYMMDDStrFromDate(Date date)
{
    const YearMonthDay fields = yearMonthDayFromDate(date);
    return QString::number(fields.year) + twoDigits(fields.month) + twoDigits(fields.day);
}

Date DateUtilities::janFirstThisYear()
{
    return dateFromYear(integerValue(currentYear()), 1, 1);
}

YearMonthDay DateUtilities::yearMonthDayFromJulianDay(std::int64_t days)
{
    const std::unique_ptr<icu::Calendar> calendar = calendarWithoutZone();
    calendar->clear();
    calendar->set(UCAL_JULIAN_DAY, static_cast<int32_t>(days));
    return fieldsOf(*calendar);
}

bool DateUtilities::isLeftOut(const YearMonthDay& day)
{
    return yearMonthDayFromDate(dateFromYear(day.year, day.month, day.day)) != day;
}

Date DateUtilities::dateFromYear(int year, int month, int day)
{
    const std::unique_ptr<icu::Calendar> calendar = currentCalendar();
    calendar->clear();
    calendar->set(year, month - 1, day);
    return dateOf(*calendar);
}

std::optional<Date> DateUtilities::cleanseDate(Date date)
{
    DateFormatter formatter;
    formatter.setDateFormat(QStringLiteral("yyyy-MM-dd"));
    return formatter.dateFromString(formatter.stringFromDate(date));
}

Date DateUtilities::dateByAddingDays(Date date, int days, int months, int years)
{
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::Calendar> calendar = currentCalendar(date);
    calendar->add(UCAL_YEAR, years, status);
    calendar->add(UCAL_MONTH, months, status);
    addDays(*calendar, days);
    return dateOf(*calendar);
}

DateComponents DateUtilities::diffDate(Date dateA, Date dateB, CalendarUnits units)
{
    const std::unique_ptr<icu::Calendar> calendar = currentCalendar(dateA);
    // fieldDifference moves the calendar towards dateB, so the next, smaller unit gets the remainder.
    const auto take = [&](CalendarUnit unit, UCalendarDateFields which) {
        UErrorCode status = U_ZERO_ERROR;
        return units.testFlag(unit) ? calendar->fieldDifference(udate(dateB), which, status) : 0;
    };
    DateComponents difference;
    difference.year = take(CalendarUnit::Year, UCAL_YEAR);
    difference.month = take(CalendarUnit::Month, UCAL_MONTH);
    difference.day = take(CalendarUnit::Day, UCAL_DAY_OF_MONTH);
    difference.hour = take(CalendarUnit::Hour, UCAL_HOUR_OF_DAY);
    difference.minute = take(CalendarUnit::Minute, UCAL_MINUTE);
    difference.second = take(CalendarUnit::Second, UCAL_SECOND);
    return difference;
}

QString DateUtilities::componentOfDate(Date date, const DateFormatter& formatter)
{
    return formatter.stringFromDate(date);
}

QString DateUtilities::mediumStyleFromDate(Date date)
{
    return styleFromDate(date, DateFormatter::Style::Medium);
}

QString DateUtilities::longStyleFromDate(Date date)
{
    return styleFromDate(date, DateFormatter::Style::Long);
}

QString DateUtilities::shortStyleFromDate(Date date)
{
    return styleFromDate(date, DateFormatter::Style::Short);
}

QString DateUtilities::yearFromDate(Date date)
{
    return patternFromDate(date, u"yyyy");
}

QString DateUtilities::monthFromDate(Date date)
{
    return patternFromDate(date, u"MM");
}

QString DateUtilities::dayFromDate(Date date)
{
    return patternFromDate(date, u"d");
}

QString DateUtilities::currentYear()
{
    return yearFromDate(DateEnvironment::now());
}

QString DateUtilities::currentMonth()
{
    return monthFromDate(DateEnvironment::now());
}

QString DateUtilities::currentDay()
{
    return dayFromDate(DateEnvironment::now());
}

std::string DateUtilities::localeDevice()
{
    UErrorCode status = U_ZERO_ERROR;
    icu::Locale locale = icuLocale(DateEnvironment::localePair().preferredLanguages.front());
    locale.setKeywordValue("calendar", currentCalendar()->getType(), status);
    return locale.toLanguageTag<std::string>(status);
}

DateFormatter DateUtilities::copyFormatterForLocaleDevice()
{
    return DateFormatter(localeDevice());
}

QString DateUtilities::dayNameFromDate(Date date)
{
    return patternFromDate(date, u"EEEE");
}

QString DateUtilities::shortDayNameFromDate(Date date)
{
    return patternFromDate(date, u"EEE");
}

QString DateUtilities::veryShortMonthNameFromDate(Date date)
{
    return monthSymbol(date, copyFormatterForLocaleDevice().veryShortStandaloneMonthSymbols());
}

QString DateUtilities::shortMonthNameFromDate(Date date)
{
    return monthSymbol(date, copyFormatterForLocaleDevice().shortStandaloneMonthSymbols());
}

QString DateUtilities::monthNameFromDate(Date date)
{
    return monthSymbol(date, copyFormatterForLocaleDevice().standaloneMonthSymbols());
}

int DateUtilities::weekDayNumberFromDate(Date date)
{
    return gregorianField(date, UCAL_DAY_OF_WEEK);
}

int DateUtilities::monthNumberFromDate(Date date)
{
    return gregorianField(date, UCAL_MONTH) + 1;
}

std::int64_t DateUtilities::monthNumberFromName(const QString& monthName)
{
    const std::int64_t index = indexInList(copyFormatterForLocaleDevice().standaloneMonthSymbols(), monthName);
    return static_cast<std::int64_t>(static_cast<std::uint64_t>(index) + 1); // NotFound wraps
}

std::optional<QString> DateUtilities::monthNameFromNumber(std::int64_t month)
{
    if (month < 1 || month > 12) {
        return std::nullopt;
    }
    return DateFormatter().monthSymbols().value(month - 1);
}

std::int64_t DateUtilities::dayNumberFromName(const QString& dayName)
{
    return indexInList(DateFormatter().weekdaySymbols(), dayName);
}

int DateUtilities::daysInMonth(Date date)
{
    UErrorCode status = U_ZERO_ERROR;
    return currentCalendar(date)->getActualMaximum(UCAL_DAY_OF_MONTH, status);
}

std::int64_t DateUtilities::julianDayFromDate(Date date)
{
    return gregorianField(date, UCAL_JULIAN_DAY);
}

bool DateUtilities::isThisDate(Date dateA, Date equalToSecondDate)
{
    return yearMonthDayFromDate(dateA) == yearMonthDayFromDate(equalToSecondDate);
}

DateFormatter DateUtilities::listDateFormatter()
{
    DateFormatter formatter = copyFormatterForLocaleDevice();
    formatter.setDateFormat(QStringLiteral("EEE, MMM d, yyyy"));
    return formatter;
}

Date DateUtilities::today()
{
    const Date now = DateEnvironment::now();
    const DateFormatter formatter = listDateFormatter();
    if (const std::optional<Date> midnight = formatter.dateFromString(formatter.stringFromDate(now))) {
        return *midnight;
    }
    const YearMonthDay fields = yearMonthDayFromDate(now);
    return dateFromYear(fields.year, fields.month, fields.day);
}
