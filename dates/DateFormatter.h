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

/// Whether `identifier` can stand for a locale: letters of ASCII, digits, "_" and "-", fewer than ICU's longest name
/// has; no part longer than ICU holds ("norwegianbokmal" is bogus to it); no digits or calendar asked for that ICU
/// lacks; and no calendar in which year, month and day are not enough to name a day. Nobody need have heard of the
/// locale. For others ICU gives null instead of a formatter, or empty texts.
bool isLocaleIdentifier(const std::string& identifier);

/// A locale identifier in the desktop's or the BCP 47 form ("de_DE", "de-DE", "de", "zh-Hans-CN"), as ICU understands
/// it.
icu::Locale icuLocale(const std::string& identifier);

/// Turns dates into texts and texts into dates, in one locale, that locale's default calendar (Buddhist for th_TH,
/// Persian for fa_IR) and the process's time zone at the moment of the last construction or change. A copy is
/// independent of its original. A moved-from formatter can only be assigned to or destroyed.
class DateFormatter {
public:
    enum class Style { None, Short, Medium, Long, Full };

    /// A plain formatter: the current locale, both styles `None`, so its texts are empty until a style or format is
    /// set.
    DateFormatter();
    explicit DateFormatter(std::string localeIdentifier);
    DateFormatter(const DateFormatter& other);
    DateFormatter(DateFormatter&& other) noexcept;
    DateFormatter& operator=(const DateFormatter& other);
    DateFormatter& operator=(DateFormatter&& other) noexcept;
    ~DateFormatter();

    /// Takes on the locale and its default calendar; styles or format stay as they were set.
    void setLocale(const std::string& localeIdentifier);

    /// A style replaces a format that was set before, and the other way round.
    void setDateStyle(Style style);
    void setTimeStyle(Style style);
    void setDateFormat(const QString& pattern);

    QString stringFromDate(Date date) const;

    /// The date that the whole of `text` stands for; fields that the format leaves out are those of the calendar's
    /// first midnight, so a day without a time is its midnight. Nothing when the text does not follow the format, holds
    /// a value out of range (30 February), goes on behind the format's end, or names a local time that the zone skips.
    /// Of a local time that the zone repeats, the first.
    std::optional<Date> dateFromString(const QString& text) const;

    /// The first instant of the day that the whole of `text` stands for, in a zone that skips that day's midnight too.
    /// Nothing in the other cases of `dateFromString`, and for a day that the zone leaves out altogether.
    std::optional<Date> dayFromString(const QString& text) const;

    /// Names as they stand within a date, January (or the calendar's first month) at index 0.
    QStringList monthSymbols() const;
    QStringList shortMonthSymbols() const;

    /// Names as they stand alone, as a heading does.
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
