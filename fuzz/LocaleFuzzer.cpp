// SPDX-License-Identifier: MIT
#include "dates/DateFormatter.h"
#include "dates/DateUtilities.h"
#include "dates/DayText.h"
#include "dates/LocaleEnvironment.h"
#include "fuzz/Failure.h"
#include "fuzz/Lines.h"
#include "place/DegreesText.h"
#include "search/TextFolding.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <utility>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

constexpr std::size_t triedLanguages = 2; // each takes some milliseconds

LocalePair pairFrom(Lines& lines)
{
    const std::array<std::pair<std::string, std::string>, 5> variables{{{"LC_ALL", lines.next()},
                                                                        {"LC_TIME", lines.next()},
                                                                        {"LC_MESSAGES", lines.next()},
                                                                        {"LANG", lines.next()},
                                                                        {"LANGUAGE", lines.next()}}};
    return localePairFrom([&variables](const std::string& name) {
        return std::ranges::find(variables, name, [](const auto& variable) { return variable.first; })->second;
    });
}

void writeAndReadDates(const LocalePair& pair)
{
    const Date date = dateFromUnixSeconds(1'709'596'800); // midnight, 5 March 2024
    const YearMonthDay day = DateUtilities::yearMonthDayFromDate(date);
    if (DateUtilities::dateFromYear(day.year, day.month, day.day) != date) {
        fail("a day reads back as another day");
    }
    for (const QString& text :
         {DateUtilities::longStyleFromDate(date), DateUtilities::mediumStyleFromDate(date),
          DateUtilities::shortStyleFromDate(date), DateUtilities::dayNameFromDate(date),
          DateUtilities::monthNameFromDate(date), DateUtilities::listDateFormatter().stringFromDate(date)}) {
        if (text.isEmpty()) {
            fail("a date without a text");
        }
    }
    for (std::size_t i = 0; i < std::min(triedLanguages, pair.preferredLanguages.size()); ++i) {
        const DayText dayText(pair.preferredLanguages[i]);
        const QString text = dayText.textFromDate(date);
        if (text.isEmpty()) {
            fail("a day without a text");
        }
        const std::optional<Date> read = dayText.dateFromText(text, date);
        if (read && *read != date) {
            fail("what was written reads back differently");
        }
    }
    if (DegreesText::degreesFromText(DegreesText::wholeText(-12.25), 90) != -12.25) {
        fail("a number reads back differently");
    }
}

} // namespace

/// The environment variables for languages, one a line. Every use of the resulting locale pair must work.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const bool isSet = [] {
        DateEnvironment::setTimeZone("UTC");
        return true;
    }();
    (void)isSet;
    Lines lines(data, size);
    const LocalePair pair = pairFrom(lines);
    if (pair.preferredLanguages.empty() || !isLocaleIdentifier(pair.currentLocale) ||
        !std::ranges::all_of(pair.preferredLanguages, isLocaleIdentifier)) {
        fail("a locale that ICU cannot work with");
    }
    static std::set<std::pair<std::string, std::vector<std::string>>> tried; // most inputs result in a few of them
    if (tried.emplace(pair.currentLocale, pair.preferredLanguages).second) {
        DateEnvironment::setLocalePair(pair);
        writeAndReadDates(pair);
        (void)foldingForLocale(pair.currentLocale);
    }
    return 0;
}
