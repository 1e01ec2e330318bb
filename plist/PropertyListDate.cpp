// SPDX-License-Identifier: MIT
#include "plist/PropertyListParts.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>

namespace PropertyList {

namespace {

using std::chrono::sys_days;
using std::chrono::sys_seconds;
using std::chrono::year;

constexpr sys_seconds firstNameable = sys_days(year::min() / 1 / 1);
constexpr sys_seconds lastNameable = sys_days(year::max() / 12 / 31) + std::chrono::days(1) - std::chrono::seconds(1);

constexpr double secondsOf(sys_seconds moment)
{
    return static_cast<double>(moment.time_since_epoch().count());
}

/// Removes a number of exactly `digits` digits and the `separator` after it from the front of `text`.
std::optional<int> takeNumber(std::string_view& text, std::size_t digits, char separator)
{
    if (text.size() <= digits || text[digits] != separator) {
        return std::nullopt;
    }
    int value = 0;
    for (const char digit : text.substr(0, digits)) {
        if (digit < '0' || digit > '9') {
            return std::nullopt;
        }
        value = value * 10 + (digit - '0');
    }
    text.remove_prefix(digits + 1);
    return value;
}

std::optional<int> takeYear(std::string_view& text)
{
    const bool negative = text.starts_with('-');
    if (negative) {
        text.remove_prefix(1);
    }
    const std::size_t digits = text.find('-');
    if (digits != 4 && digits != 5) {
        return std::nullopt;
    }
    const std::optional<int> number = takeNumber(text, digits, '-');
    if (!number || *number > static_cast<int>(year::max())) {
        return std::nullopt;
    }
    return negative ? -*number : *number;
}

/// Appends `number`, which has at most five digits, padded to `digits` digits, and the separator.
void appendNumber(std::string& text, unsigned number, std::size_t digits, char separator)
{
    std::array<char, 5> written{};
    std::size_t first = written.size();
    while (number != 0 || written.size() - first < digits) {
        written[--first] = static_cast<char>('0' + number % 10);
        number /= 10;
    }
    text.append(written.data() + first, written.size() - first).push_back(separator);
}

} // namespace

std::optional<Date> dateFromText(std::string_view text)
{
    const std::optional<int> y = takeYear(text);
    const std::optional<int> month = y ? takeNumber(text, 2, '-') : std::nullopt;
    const std::optional<int> day = month ? takeNumber(text, 2, 'T') : std::nullopt;
    const std::optional<int> hour = day ? takeNumber(text, 2, ':') : std::nullopt;
    const std::optional<int> minute = hour ? takeNumber(text, 2, ':') : std::nullopt;
    const std::optional<int> second = minute ? takeNumber(text, 2, 'Z') : std::nullopt;
    if (!second || !text.empty() || *hour > 23 || *minute > 59 || *second > 59) {
        return std::nullopt;
    }
    const std::chrono::year_month_day date(year(*y), std::chrono::month(static_cast<unsigned>(*month)),
                                           std::chrono::day(static_cast<unsigned>(*day)));
    if (!date.ok()) {
        return std::nullopt;
    }
    const sys_seconds moment =
        sys_days(date) + std::chrono::hours(*hour) + std::chrono::minutes(*minute) + std::chrono::seconds(*second);
    return dateFromUnixSeconds(secondsOf(moment));
}

std::string textFromDate(Date date)
{
    // NaN compares false with everything and would pass through the clamp.
    const double seconds = std::isnan(unixSeconds(date)) ? 0 : std::floor(unixSeconds(date));
    const double nameable = std::clamp(seconds, secondsOf(firstNameable), secondsOf(lastNameable));
    const sys_seconds moment(std::chrono::seconds(static_cast<std::int64_t>(nameable)));
    const auto day = std::chrono::floor<std::chrono::days>(moment);
    const std::chrono::year_month_day ymd(day);
    const std::chrono::hh_mm_ss time(moment - day);

    const int y = static_cast<int>(ymd.year());
    std::string text(y < 0 ? "-" : "");
    appendNumber(text, static_cast<unsigned>(std::abs(y)), 4, '-');
    appendNumber(text, static_cast<unsigned>(ymd.month()), 2, '-');
    appendNumber(text, static_cast<unsigned>(ymd.day()), 2, 'T');
    appendNumber(text, static_cast<unsigned>(time.hours().count()), 2, ':');
    appendNumber(text, static_cast<unsigned>(time.minutes().count()), 2, ':');
    appendNumber(text, static_cast<unsigned>(time.seconds().count()), 2, 'Z');
    return text;
}

bool canBeNamed(Date date)
{
    const double seconds = std::floor(unixSeconds(date));
    return seconds >= secondsOf(firstNameable) && seconds <= secondsOf(lastNameable);
}

} // namespace PropertyList
