// SPDX-License-Identifier: MIT
#include "dates/Clock.h"
#include "dates/DateUtilities.h"
#include "dates/DayText.h"
#include "fuzz/Failure.h"
#include "fuzz/Lines.h"
#include "place/DegreesText.h"
#include "text/IntegerValue.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <map>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

constexpr std::array languages{"en_US", "de_DE", "sv_SE", "fa_IR", "th_TH", "ar_EG", "ja_JP",
                               "ko_KR", "zh_TW", "he_IL", "bg_BG", "my_MM", "am_ET", "hu_HU"};

/// The readers of texts in the current locale, kept because they are slow to construct.
struct Readers {
    explicit Readers(const std::string& language) : dayText(language)
    {
        for (const auto style : {DateFormatter::Style::Short, DateFormatter::Style::Long}) {
            formatters.emplace_back().setDateStyle(style);
        }
        formatters.push_back(DateUtilities::listDateFormatter());
    }

    DayText dayText;
    std::vector<DateFormatter> formatters;
};

const Readers& readersOf(const std::string& language)
{
    static std::map<std::string, Readers> readers;
    return readers.try_emplace(language, language).first->second;
}

/// The text of UTF-8 or, if `units`, of UTF-16 code units: pasted text may contain unpaired surrogates.
QString textFrom(const std::string& bytes, bool units)
{
    if (!units) {
        return QString::fromStdString(bytes);
    }
    QString text(static_cast<qsizetype>(bytes.size() / sizeof(QChar)), Qt::Uninitialized);
    std::memcpy(text.data(), bytes.data(), static_cast<std::size_t>(text.size()) * sizeof(QChar));
    return text;
}

void tryDay(const DayText& dayText, const QString& typed, Date date)
{
    for (qsizetype caret = -1; caret <= typed.size() + 1; ++caret) {
        (void)dayText.partAt(typed, caret);
    }
    const std::optional<Date> read = dayText.dateFromText(typed, date);
    if (read && dayText.dateFromText(dayText.textFromDate(*read), date) != read) {
        fail("a typed day reads back differently");
    }
}

void tryFormats(const std::vector<DateFormatter>& formatters, const QString& typed)
{
    for (const DateFormatter& formatter : formatters) {
        (void)formatter.dateFromString(typed);
        (void)formatter.dayFromString(typed);
    }
}

void tryNumbers(const QString& typed)
{
    (void)integerValue(typed);
    const std::optional<double> degrees = DegreesText::degreesFromText(typed, 180);
    if (degrees && DegreesText::degreesFromText(DegreesText::wholeText(*degrees), 180) != degrees) {
        fail("a typed number reads back differently");
    }
}

} // namespace

/// An input is a language as a letter from "a" on, in capitals when UTF-16 code units follow instead of UTF-8; a line
/// feed; and what a person typed.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const bool isSet = [] {
        DateEnvironment::setTimeZone("Europe/Berlin");
        return true;
    }();
    (void)isSet;
    Lines lines(data, size);
    const std::string choice = lines.next();
    const auto letter = static_cast<unsigned char>(choice.empty() ? 'a' : choice.front());
    const std::string language = languages.at(letter % 32 % languages.size());
    const QString typed = textFrom(lines.rest(), letter < 'a');
    DateEnvironment::setLocalePair({language, {language}});
    const Readers& readers = readersOf(language);
    tryDay(readers.dayText, typed, dateFromUnixSeconds(1'709'637'630)); // 5 March 2024, 12:20:30
    tryFormats(readers.formatters, typed);
    tryNumbers(typed);
    return 0;
}
