// SPDX-License-Identifier: MIT
#include "dates/DateFormatter.h"

#include "dates/Clock.h"
#include "dates/IcuTypes.h"

#include <unicode/calendar.h>
#include <unicode/dtfmtsym.h>
#include <unicode/smpdtfmt.h>
#include <unicode/strenum.h>

#include <algorithm>
#include <utility>

namespace {

icu::DateFormat::EStyle icuStyle(DateFormatter::Style style)
{
    switch (style) {
    case DateFormatter::Style::Short:
        return icu::DateFormat::kShort;
    case DateFormatter::Style::Medium:
        return icu::DateFormat::kMedium;
    case DateFormatter::Style::Long:
        return icu::DateFormat::kLong;
    case DateFormatter::Style::Full:
        return icu::DateFormat::kFull;
    case DateFormatter::Style::None:
        break;
    }
    return icu::DateFormat::kNone;
}

std::unique_ptr<icu::SimpleDateFormat> patternFormatter(const icu::UnicodeString& pattern, const icu::Locale& locale)
{
    UErrorCode status = U_ZERO_ERROR;
    return std::make_unique<icu::SimpleDateFormat>(pattern, locale, status);
}

/// Null when ICU has no such style for the locale or makes a formatter of another kind.
std::unique_ptr<icu::SimpleDateFormat> styleFormatter(DateFormatter::Style dateStyle, DateFormatter::Style timeStyle,
                                                      const icu::Locale& locale)
{
    std::unique_ptr<icu::DateFormat> made(
        icu::DateFormat::createDateTimeInstance(icuStyle(dateStyle), icuStyle(timeStyle), locale));
    auto* simple = dynamic_cast<icu::SimpleDateFormat*>(made.get());
    if (simple) {
        static_cast<void>(made.release());
    }
    return std::unique_ptr<icu::SimpleDateFormat>(simple);
}

QStringList symbolList(const icu::UnicodeString* symbols, int first, int count)
{
    QStringList list;
    list.reserve(count - first);
    for (int i = first; i < count; ++i) {
        list.append(qStringFromIcu(symbols[i]));
    }
    return list;
}

QStringList months(const icu::SimpleDateFormat& formatter, icu::DateFormatSymbols::DtContextType context,
                   icu::DateFormatSymbols::DtWidthType width)
{
    int32_t count = 0;
    const icu::UnicodeString* symbols = formatter.getDateFormatSymbols()->getMonths(count, context, width);
    return symbolList(symbols, 0, count);
}

QStringList weekdays(const icu::SimpleDateFormat& formatter, icu::DateFormatSymbols::DtContextType context,
                     icu::DateFormatSymbols::DtWidthType width)
{
    int32_t count = 0;
    const icu::UnicodeString* symbols = formatter.getDateFormatSymbols()->getWeekdays(count, context, width);
    return symbolList(symbols, UCAL_SUNDAY, count); // ICU leaves entry 0 unused
}

/// The calendar fields that the whole of `text` stands for; fields that the format leaves out are those of the
/// calendar's first midnight. Null when the text does not follow the format.
std::unique_ptr<icu::Calendar> parsedFields(const icu::SimpleDateFormat& formatter, const QString& text)
{
    std::unique_ptr<icu::Calendar> fields(formatter.getCalendar()->clone());
    fields->clear();
    fields->setRepeatedWallTimeOption(UCAL_WALLTIME_FIRST);
    icu::ParsePosition position(0);
    formatter.parse(icuString(text), *fields, position);
    const bool whole = !text.isEmpty() && position.getErrorIndex() < 0 && position.getIndex() == text.size();
    return whole ? std::move(fields) : nullptr;
}

std::optional<Date> instantOf(const icu::Calendar& fields)
{
    UErrorCode status = U_ZERO_ERROR;
    const UDate moment = fields.getTime(status);
    return U_SUCCESS(status) ? std::optional(dateFromUDate(moment)) : std::nullopt;
}

/// A locale may ask, by keywords, for a calendar or digits that do not exist.
bool canWriteDates(const icu::Locale& locale)
{
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::StringEnumeration> keywords(locale.createKeywords(status));
    if (keywords) {
        const icu::SimpleDateFormat formatter(icu::UnicodeString("y"), locale, status);
    }
    return U_SUCCESS(status) != 0;
}

/// Whether year, month and day name each day once. In calendars of cycles and leap months they do not; no locale has
/// such a calendar by default, but any can ask for one.
bool countsDaysByNumbers(const icu::Locale& locale)
{
    UErrorCode status = U_ZERO_ERROR;
    const auto calendar = locale.getKeywordValue<std::string>("calendar", status);
    return calendar != "chinese" && calendar != "dangi";
}

} // namespace

bool isLocaleIdentifier(const std::string& identifier)
{
    const auto isPart = [](char c) {
        return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_' || c == '-';
    };
    if (identifier.size() >= ULOC_FULLNAME_CAPACITY || !std::ranges::all_of(identifier, isPart) ||
        icu::Locale(identifier.c_str()).isBogus()) {
        return false;
    }
    const icu::Locale locale = icuLocale(identifier);
    return !locale.isBogus() && canWriteDates(locale) && countsDaysByNumbers(locale);
}

icu::Locale icuLocale(const std::string& identifier)
{
    UErrorCode status = U_ZERO_ERROR;
    icu::Locale locale = icu::Locale::forLanguageTag(identifier, status);
    if (U_FAILURE(status) || locale.getLanguage()[0] == '\0') {
        return icu::Locale::createCanonical(identifier.c_str());
    }
    return locale;
}

DateFormatter::DateFormatter() : DateFormatter(DateEnvironment::localePair().currentLocale) {}

DateFormatter::DateFormatter(std::string localeIdentifier) : m_localeIdentifier(std::move(localeIdentifier))
{
    rebuild();
}

DateFormatter::DateFormatter(const DateFormatter& other)
    : m_localeIdentifier(other.m_localeIdentifier), m_dateStyle(other.m_dateStyle), m_timeStyle(other.m_timeStyle),
      m_pattern(other.m_pattern), m_formatter(other.m_formatter->clone())
{
}

DateFormatter::DateFormatter(DateFormatter&& other) noexcept = default;

DateFormatter& DateFormatter::operator=(const DateFormatter& other)
{
    DateFormatter copy(other);
    return *this = std::move(copy);
}

DateFormatter& DateFormatter::operator=(DateFormatter&& other) noexcept = default;

DateFormatter::~DateFormatter() = default;

void DateFormatter::setLocale(const std::string& localeIdentifier)
{
    m_localeIdentifier = localeIdentifier;
    rebuild();
}

void DateFormatter::setDateStyle(Style style)
{
    m_dateStyle = style;
    m_pattern.reset();
    rebuild();
}

void DateFormatter::setTimeStyle(Style style)
{
    m_timeStyle = style;
    m_pattern.reset();
    rebuild();
}

void DateFormatter::setDateFormat(const QString& pattern)
{
    m_pattern = pattern;
    m_formatter->applyPattern(icuString(pattern)); // far cheaper than another formatter
}

void DateFormatter::rebuild()
{
    const icu::Locale locale = icuLocale(m_localeIdentifier);
    const bool styled = !m_pattern && (m_dateStyle != Style::None || m_timeStyle != Style::None);
    m_formatter = styled ? styleFormatter(m_dateStyle, m_timeStyle, locale) : nullptr;
    if (!m_formatter) {
        m_formatter = patternFormatter(icuString(m_pattern.value_or(QString())), locale);
    }
    m_formatter->setLenient(false);
}

QString DateFormatter::stringFromDate(Date date) const
{
    icu::UnicodeString text;
    m_formatter->format(udate(date), text);
    return qStringFromIcu(text);
}

std::optional<Date> DateFormatter::dateFromString(const QString& text) const
{
    const std::unique_ptr<icu::Calendar> fields = parsedFields(*m_formatter, text);
    return fields ? instantOf(*fields) : std::nullopt;
}

std::optional<Date> DateFormatter::dayFromString(const QString& text) const
{
    constexpr int noon = 12;
    const std::unique_ptr<icu::Calendar> fields = parsedFields(*m_formatter, text);
    if (!fields) {
        return std::nullopt;
    }
    fields->set(UCAL_HOUR_OF_DAY, noon); // no clock change skips noon, so this checks the text's own fields
    if (!instantOf(*fields)) {
        return std::nullopt;
    }
    fields->setLenient(true); // a skipped midnight carries over to the first instant
    fields->set(UCAL_HOUR_OF_DAY, 0);
    return instantOf(*fields);
}

QStringList DateFormatter::monthSymbols() const
{
    return months(*m_formatter, icu::DateFormatSymbols::FORMAT, icu::DateFormatSymbols::WIDE);
}

QStringList DateFormatter::shortMonthSymbols() const
{
    return months(*m_formatter, icu::DateFormatSymbols::FORMAT, icu::DateFormatSymbols::ABBREVIATED);
}

QStringList DateFormatter::standaloneMonthSymbols() const
{
    return months(*m_formatter, icu::DateFormatSymbols::STANDALONE, icu::DateFormatSymbols::WIDE);
}

QStringList DateFormatter::shortStandaloneMonthSymbols() const
{
    return months(*m_formatter, icu::DateFormatSymbols::STANDALONE, icu::DateFormatSymbols::ABBREVIATED);
}

QStringList DateFormatter::veryShortStandaloneMonthSymbols() const
{
    return months(*m_formatter, icu::DateFormatSymbols::STANDALONE, icu::DateFormatSymbols::NARROW);
}

QStringList DateFormatter::weekdaySymbols() const
{
    return weekdays(*m_formatter, icu::DateFormatSymbols::FORMAT, icu::DateFormatSymbols::WIDE);
}

QStringList DateFormatter::shortWeekdaySymbols() const
{
    return weekdays(*m_formatter, icu::DateFormatSymbols::FORMAT, icu::DateFormatSymbols::ABBREVIATED);
}

QStringList DateFormatter::standaloneWeekdaySymbols() const
{
    return weekdays(*m_formatter, icu::DateFormatSymbols::STANDALONE, icu::DateFormatSymbols::WIDE);
}

QStringList DateFormatter::shortStandaloneWeekdaySymbols() const
{
    return weekdays(*m_formatter, icu::DateFormatSymbols::STANDALONE, icu::DateFormatSymbols::ABBREVIATED);
}

QStringList DateFormatter::veryShortStandaloneWeekdaySymbols() const
{
    return weekdays(*m_formatter, icu::DateFormatSymbols::STANDALONE, icu::DateFormatSymbols::NARROW);
}
