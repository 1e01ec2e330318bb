// SPDX-License-Identifier: MIT
#pragma once

#include "dates/Date.h"

#include <QString>
#include <QStringView>

#include <array>
#include <optional>
#include <string>

/// A day as it is typed: day, month and the whole year as numbers, in the order and with the separators of a language
/// (Unicode locale data, skeleton yMd), counted by the calendar of the locale identifier that names it.
class DayText {
public:
    enum class Part { Year, Month, Day };

    /// `language` is a locale identifier; the calendar is its default one, in the process's time zone.
    explicit DayText(const std::string& language);

    /// "12/24/1965", "24.12.1965", "1965-12-24"; a year before 1000 has zeros in front ("0982"). `dateFromText` reads
    /// it back as the same day.
    QString textFromDate(Date date) const;

    /// The date that `typed` stands for, at the time of day of `date`: three numbers with anything between them, or
    /// eight digits on end, in any script's digits. Nothing while it is not complete (the year has four digits) and for
    /// a day that does not exist.
    std::optional<Date> dateFromText(QStringView typed, Date date) const;

    /// Which number of `text` the caret stands in or behind.
    Part partAt(QStringView text, qsizetype caret) const;

private:
    struct Numbers {
        int year = 0;
        int month = 0;
        int day = 0;
    };

    std::optional<Numbers> numbersFrom(QStringView typed) const;
    static int& number(Numbers& numbers, Part part);

    std::string m_language;
    QString m_pattern;
    std::array<Part, 3> m_order{}; ///< as the language writes them
};
