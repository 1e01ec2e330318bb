// SPDX-License-Identifier: MIT
#include "dates/DateUtilities.h"
#include "dates/DayText.h"
#include "dates/LocaleEnvironment.h"
#include "place/DegreesText.h"
#include "search/TextFolding.h"
#include "support/DateGuards.h"

#include <gtest/gtest.h>

#include <map>

namespace {

using Variables = std::map<std::string, std::string>;

LocalePair pairOf(const Variables& variables)
{
    return localePairFrom([&variables](const char* name) {
        const auto found = variables.find(name);
        return found == variables.end() ? std::string() : found->second;
    });
}

std::string repeated(const std::string& text, std::size_t size)
{
    std::string result;
    while (result.size() < size) {
        result += text;
    }
    return result;
}

constexpr std::size_t megabyte = std::size_t{1} << 20;

/// Names that no locale can have: what they are not taken for is en_US.
std::vector<std::string> namesOfNoLocale()
{
    return {
        "norwegianbokmal",
        "abcdefghijkl", // 12 letters are one more than ICU holds
        "NORWEGIANBOKMAL_NO.UTF-8@latin",
        "Deutsch (Deutschland)",
        "Deutsch (Deutschland).UTF-8",
        "norwegianbokmal-NO",
        repeated("a", megabyte),
        "de_DE_" + repeated("variant_", megabyte),
        "de_DE_" + repeated("abcde_", 160),
        repeated("_", megabyte),
        repeated("de_", 160),
        "\x01\x02\x1f\x7f",
        "de\nDE",
        "de\tDE",
        "de_DE\x1b[2J",
        "\xC3\xA4",
        "\xFF\xFE",
        "日本語",
        "日本語日本語",
        "/etc/passwd",
        "de_DE/LC_TIME",
        "%s%n%s",
        "{}",
        "en_US:de_DE",
        "de DE",
        "de_DE*",
        "fa-IR-u-nu-nonsense", // digits that there are not
        "fa_IR_u_nu_nonsense",
        "yzh-u-ca-chinese", // the same numbers come again each 60 years, and a month twice
        "ko-KR-u-ca-dangi",
    };
}

/// Whatever the program makes of a pair: none of it ends it, and what is written is read back.
void expectDatesWork(const LocalePair& pair)
{
    const LocaleGuard locale(pair.currentLocale, pair.preferredLanguages);
    const Date date = utcDate(2024, 3, 5);
    EXPECT_NE(DateUtilities::longStyleFromDate(date), QString());
    EXPECT_NE(DateUtilities::mediumStyleFromDate(date), QString());
    EXPECT_NE(DateUtilities::monthNameFromDate(date), QString());
    EXPECT_NE(DateUtilities::dayNameFromDate(date), QString());
    const YearMonthDay day = DateUtilities::yearMonthDayFromDate(date);
    EXPECT_EQ(DateUtilities::dateFromYear(day.year, day.month, day.day), date);
    EXPECT_EQ(DateUtilities::copyFormatterForLocaleDevice().weekdaySymbols().size(), 7);
    for (const std::string& language : pair.preferredLanguages) {
        const DayText dayText(language);
        EXPECT_EQ(dayText.dateFromText(dayText.textFromDate(date), date), date) << language;
    }
    EXPECT_EQ(DegreesText::degreesFromText(DegreesText::wholeText(12.5), 90), 12.5);
    EXPECT_EQ(foldedText(u"A", foldingForLocale(pair.currentLocale)), u"a");
}

class LocaleOfNoName : public testing::TestWithParam<std::string> {
    TimeZoneGuard m_zone{"UTC"};
};

TEST_P(LocaleOfNoName, CountsAsAmericanEnglish)
{
    EXPECT_EQ(localeIdentifier(GetParam()), "en_US");
    for (const char* variable : {"LC_ALL", "LANG"}) {
        EXPECT_EQ(pairOf({{variable, GetParam()}}), LocalePair()) << variable;
        expectDatesWork(pairOf({{variable, GetParam()}}));
    }
    // The first that is set counts, good or not; each variable by itself.
    EXPECT_EQ(pairOf({{"LC_ALL", GetParam()}, {"LANG", "de_DE"}}), LocalePair());
    EXPECT_EQ(pairOf({{"LC_TIME", GetParam()}, {"LANG", "de_DE"}}), (LocalePair{"en_US", {"de-DE"}}));
    EXPECT_EQ(pairOf({{"LC_MESSAGES", GetParam()}, {"LANG", "de_DE"}}), (LocalePair{"de_DE", {"en-US"}}));
}

TEST_P(LocaleOfNoName, IsLeftOutOfAListOfLanguages)
{
    const std::string& name = GetParam();
    if (name.find(':') != std::string::npos) {
        return; // two entries, both good
    }
    EXPECT_EQ(pairOf({{"LANG", "de_DE"}, {"LANGUAGE", name}}), (LocalePair{"de_DE", {"de-DE"}}));
    EXPECT_EQ(pairOf({{"LANG", name}, {"LANGUAGE", name}}), LocalePair());
    EXPECT_EQ(pairOf({{"LANG", "de_DE"}, {"LANGUAGE", name + ":sv:" + name + "::fr_CA:" + name}}),
              (LocalePair{"de_DE", {"sv", "fr-CA"}}));
}

INSTANTIATE_TEST_SUITE_P(Names, LocaleOfNoName, testing::ValuesIn(namesOfNoLocale()),
                         [](const auto& name) { return std::to_string(name.index); });

TEST(LocaleOfAnyName, DatesAreWrittenAndReadInItThoughNobodyHasHeardOfIt)
{
    const TimeZoneGuard zone("UTC");
    const std::pair<const char*, const char*> names[] = {
        {"abcdefghijk", "abcdefghijk"}, // 11 letters
        {"Deutsch", "Deutsch"},
        {"a", "a"},
        {"_", "_"},
        {"_DE", "_DE"},
        {"-", "-"},
        {"12345", "12345"},
        {"root", "root"},
        {"und", "und"},
        {"x-y", "x-y"},
        {"i-klingon", "i-klingon"},
        {"C.UTF-8", "en_US"},
        {"de_DE@calendar=japanese", "de_DE"},
        {"de_DE@calendar=nonsense;numbers=beng", "de_DE"},
        {"de_DE@", "de_DE"},
        {"de_DE@@@", "de_DE"},
        {"th_TH@calendar=gregorian", "th_TH"},
        {"de-DE-u-ca-buddhist", "de-DE-u-ca-buddhist"},
        {"fa-IR-u-ca-nonsense", "fa-IR-u-ca-nonsense"},
        {"ja-JP-u-ca-japanese", "ja-JP-u-ca-japanese"},
        {"de_Latnnnnnnnnnnnnnn_DE", "de_Latnnnnnnnnnnnnnn_DE"},
    };
    for (const auto& [name, identifier] : names) {
        EXPECT_EQ(localeIdentifier(name), identifier);
        const LocalePair pair = pairOf({{"LANG", name}});
        EXPECT_EQ(pair.currentLocale, identifier);
        expectDatesWork(pair);
    }
}

TEST(LanguageList, OfAnySizeIsReadToItsFirst64Languages)
{
    EXPECT_EQ(pairOf({{"LANGUAGE", repeated("sv:", megabyte)}}).preferredLanguages, std::vector<std::string>(64, "sv"));
    EXPECT_EQ(pairOf({{"LANGUAGE", repeated("norwegianbokmal:", megabyte) + "sv"}}).preferredLanguages,
              std::vector<std::string>{"sv"});
    EXPECT_EQ(pairOf({{"LANGUAGE", repeated(":", megabyte)}}), LocalePair());
}

} // namespace
