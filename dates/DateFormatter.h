// SPDX-License-Identifier: MIT
#pragma once

#include "dates/Date.h"

#include <QString>
#include <QStringList>
#include <unicode/uversion.h>

#include <memory>
#include <optional>
#include <string>

U_NAMESPACE_BEGIN
class Locale;
class SimpleDateFormat;
U_NAMESPACE_END

/// Whether ICU can work with `identifier` as a locale: ASCII letters, digits, "_" and "-" only; shorter than ICU's
/// limit, as a whole and in each part ("norwegianbokmal" is bogus to it); digits and calendar that ICU has; and a
/// calendar in which year, month and day are enough to name a day. The locale need not exist. For identifiers that
/// fail, ICU gives null formatters or empty texts.
bool isLocaleIdentifier(const std::string& identifier);

/// The ICU locale of an identifier in the desktop's or the BCP 47 form ("de_DE", "de-DE", "de", "zh-Hans-CN").
icu::Locale icuLocale(const std::string& identifier);

/// Converts dates to text and back, in one locale, that locale's default calendar (Buddhist for th_TH, Persian for
/// fa_IR) and the time zone that the process had when the formatter was constructed or last changed. Copies are
/// independent. A moved-from formatter can only be assigned to or destroyed.
class DateFormatter {
public:
    enum class Style { None, Short, Medium, Long, Full };

    /// A plain formatter: the current locale and both styles `None`, so its texts are empty until a style or format is
    /// set.
    DateFormatter();
    explicit DateFormatter(std::string localeIdentifier);
    DateFormatter(const DateFormatter& other);
    DateFormatter(DateFormatter&& other) noexcept;
    DateFormatter& operator=(const DateFormatter& other);
    DateFormatter& operator=(DateFormatter&& other) noexcept;
    ~DateFormatter();

    /// Switches to the locale and its default calendar; styles or format stay as they were set.
    void setLocale(const std::string& localeIdentifier);

    /// Setting a style discards the format, and setting the format overrides the styles.
    void setDateStyle(Style style);
    void setTimeStyle(Style style);
    void setDateFormat(const QString& pattern);

    QString stringFromDate(Date date) const;

    /// The date that the whole of `text` stands for. Fields that the format leaves out are those of the calendar's
    /// first midnight, so a day without a time is its midnight. A local time that the zone repeats means the first of
    /// the two. nullopt when the text does not follow the format, has a value out of range (30 February), continues
    /// after the format's end, or names a local time that the zone skips.
    std::optional<Date> dateFromString(const QString& text) const;

    /// The first instant of the day that the whole of `text` stands for, even where the zone skips that day's midnight.
    /// nullopt in the other cases of `dateFromString`, and for a day that the zone leaves out altogether.
    std::optional<Date> dayFromString(const QString& text) const;

    /// Names as they are written within a date; January (or the calendar's first month) has index 0.
    QStringList monthSymbols() const;
    QStringList shortMonthSymbols() const;

    /// Names as they are written alone, as in a heading.
    QStringList standaloneMonthSymbols() const;
    QStringList shortStandaloneMonthSymbols() const;
    QStringList veryShortStandaloneMonthSymbols() const;

    /// Sunday at index 0, in every locale.
    QStringList weekdaySymbols() const;
    QStringList shortWeekdaySymbols() const;
    QStringList standaloneWeekdaySymbols() const;
    QStringList shortStandaloneWeekdaySymbols() const;
    QStringList veryShortStandaloneWeekdaySymbols() const;

private:
    void rebuild();

    std::string m_localeIdentifier;
    Style m_dateStyle = Style::None;
    Style m_timeStyle = Style::None;
    std::optional<QString> m_pattern;
    std::unique_ptr<icu::SimpleDateFormat> m_formatter; // never null, except in a moved-from formatter
};
