// SPDX-License-Identifier: MIT
#include "dates/DayText.h"

#include "dates/DateFormatter.h"
#include "dates/DateUtilities.h"
#include "dates/IcuTypes.h"

#include <QRegularExpression>
#include <QStringList>
#include <unicode/calendar.h>
#include <unicode/dtptngen.h>
#include <unicode/timezone.h>

#include <algorithm>
#include <memory>
#include <vector>

namespace {

constexpr qsizetype yearDigits = 4;
constexpr qsizetype otherDigits = 2;

QString patternOf(const icu::Locale& locale)
{
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::DateTimePatternGenerator> generator(
        icu::DateTimePatternGenerator::createInstance(locale, status));
    if (U_FAILURE(status)) {
        return QStringLiteral("yyyy-MM-dd");
    }
    QString pattern = qStringFromIcu(generator->getBestPattern(icu::UnicodeString("yMd"), status));
    static const QRegularExpression era(
        QStringLiteral(" ?G+ ?")); // some calendars add an era, which a number does not need
    pattern.remove(era);
    static const QRegularExpression year(QStringLiteral("y+")); // the full year, as `numbersFrom` requires it
    pattern.replace(year, QStringLiteral("yyyy"));
    return pattern;
}

/// A run of digits in a text: how many, and the number they form.
struct DigitRun {
    qsizetype digits = 0;
    int value = 0;
};

std::vector<DigitRun> digitRuns(QStringView text)
{
    std::vector<DigitRun> runs;
    bool inRun = false;
    for (const char32_t character : text.toUcs4()) {
        const int digit = QChar::digitValue(character);
        if (digit < 0) {
            inRun = false;
            continue;
        }
        if (!inRun) {
            runs.push_back({});
            inRun = true;
        }
        DigitRun& run = runs.back();
        ++run.digits;
        run.value = run.digits <= 2 * yearDigits ? run.value * 10 + digit : run.value;
    }
    return runs;
}

} // namespace

DayText::DayText(const std::string& language) : m_language(language), m_pattern(patternOf(icuLocale(language)))
{
    m_order = {Part::Year, Part::Month, Part::Day};
    const auto place = [this](Part part) {
        const QChar symbol = part == Part::Year ? u'y' : part == Part::Month ? u'M' : u'd';
        return m_pattern.indexOf(symbol);
    };
    std::ranges::sort(m_order, {}, place);
}

QString DayText::textFromDate(Date date) const
{
    DateFormatter formatter(m_language);
    formatter.setDateFormat(m_pattern);
    return formatter.stringFromDate(date);
}

int& DayText::number(Numbers& numbers, Part part)
{
    return part == Part::Year ? numbers.year : part == Part::Month ? numbers.month : numbers.day;
}

std::optional<DayText::Numbers> DayText::numbersFrom(QStringView typed) const
{
    std::vector<DigitRun> runs = digitRuns(typed);
    if (runs.size() == 1 && runs.front().digits == yearDigits + 2 * otherDigits) {
        int rest = runs.front().value;
        runs.assign(m_order.size(), {});
        for (std::size_t i = m_order.size(); i-- > 0;) {
            const bool isYear = m_order.at(i) == Part::Year;
            const int power = isYear ? 10'000 : 100;
            runs.at(i) = {.digits = isYear ? yearDigits : otherDigits, .value = rest % power};
            rest /= power;
        }
    }
    if (runs.size() != m_order.size()) {
        return std::nullopt;
    }
    Numbers numbers;
    for (std::size_t i = 0; i < m_order.size(); ++i) {
        const bool isYear = m_order.at(i) == Part::Year;
        if (isYear ? runs.at(i).digits != yearDigits : runs.at(i).digits > otherDigits) {
            return std::nullopt;
        }
        number(numbers, m_order.at(i)) = runs.at(i).value;
    }
    return numbers;
}

std::optional<Date> DayText::dateFromText(QStringView typed, Date date) const
{
    const std::optional<Numbers> numbers = numbersFrom(typed);
    if (!numbers) {
        return std::nullopt;
    }
    UErrorCode status = U_ZERO_ERROR;
    // In UTC every day has its midnight.
    const std::unique_ptr<icu::Calendar> calendar(icu::Calendar::createInstance(
        icu::TimeZone::getGMT()->clone(), icuLocale(m_language), status)); // adopts the zone
    calendar->clear();
    calendar->setLenient(false);
    calendar->set(UCAL_YEAR, numbers->year);
    calendar->set(UCAL_MONTH, numbers->month - 1);
    calendar->set(UCAL_DATE, numbers->day);
    const int julianDay = calendar->get(UCAL_JULIAN_DAY, status);
    if (U_FAILURE(status)) {
        return std::nullopt;
    }
    const auto days = static_cast<int>(julianDay - DateUtilities::julianDayFromDate(date));
    return DateUtilities::dateByAddingDays(date, days, 0, 0);
}

DayText::Part DayText::partAt(QStringView text, qsizetype caret) const
{
    const std::size_t runs = digitRuns(text.first(std::clamp(caret, qsizetype(0), text.size()))).size();
    return m_order.at(std::clamp(runs, std::size_t{1}, m_order.size()) - 1);
}
