// SPDX-License-Identifier: MIT
#pragma once

#include "dates/Date.h"

#include <QString>
#include <QStringView>

#include <array>
#include <optional>
#include <string>

/// A day as it is typed: day, month and full year as numbers, in the order and with the separators of a language
/// (Unicode locale data, skeleton yMd), counted by the calendar of the language's locale identifier.
class DayText {
public:
    enum class Part { Year, Month, Day };

    /// `language` is a locale identifier. The calendar is that locale's default in the process's time zone.
    explicit DayText(const std::string& language);

    /// "12/24/1965", "24.12.1965", "1965-12-24"; a year before 1000 gets leading zeros ("0982"). `dateFromText` reads
    /// the text back as the same day.
    QString textFromDate(Date date) const;

    /// The day that `typed` stands for, at the time of day of `date`: three numbers separated by anything, or eight
    /// digits without a separator, in the digits of any script. nullopt while the text is incomplete (the year needs
    /// four digits) and for a day that does not exist.
    std::optional<Date> dateFromText(QStringView typed, Date date) const;

    /// The number of `text` that the caret stands in or after.
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
