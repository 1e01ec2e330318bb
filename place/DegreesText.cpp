// SPDX-License-Identifier: MIT
#include "place/DegreesText.h"

#include "dates/Clock.h"
#include "place/Coordinate.h"

#include <QLocale>

#include <charconv>
#include <cmath>
#include <string>
#include <system_error>

namespace {

constexpr char16_t minusSign = u'\u2212';
constexpr char16_t arabicDecimalSeparator = u'\u066b';
constexpr char16_t degreeSign = u'\u00b0';

/// Some locales put direction marks beside the signs of numbers.
bool isInvisible(char32_t character)
{
    return QChar::category(character) == QChar::Other_Format;
}

/// The character as `std::from_chars` needs it; 0 when it cannot be part of a number.
char inNumber(char32_t character)
{
    if (QChar::category(character) == QChar::Number_DecimalDigit) {
        return static_cast<char>('0' + QChar::digitValue(character));
    }
    switch (character) {
    case u'+':
    case u'-':
        return static_cast<char>(character);
    case minusSign:
        return '-';
    case u'.':
    case u',':
    case arabicDecimalSeparator:
        return '.';
    default:
        return 0;
    }
}

QLocale currentLocale()
{
    return QLocale(QString::fromStdString(DateEnvironment::localePair().currentLocale));
}

} // namespace

std::optional<double> DegreesText::degreesFromText(QStringView text, double limit)
{
    text = text.trimmed();
    if (text.endsWith(degreeSign)) {
        text = text.chopped(1).trimmed();
    }
    std::string number;
    for (const char32_t character : text.toUcs4()) {
        if (isInvisible(character)) {
            continue;
        }
        number += inNumber(character); // a 0 makes from_chars stop early, which refuses the text
    }
    if (number.starts_with('+') && !number.starts_with("+-")) {
        number.erase(0, 1);
    }
    double degrees = 0;
    const char* end = number.data() + number.size();
    const auto [rest, error] = std::from_chars(number.data(), end, degrees, std::chars_format::fixed);
    const bool isNumber = error == std::errc() && rest == end;
    return isNumber ? angleWithin(degrees + 0.0, limit) : std::nullopt; // no negative zero
}

QString DegreesText::wholeText(double degrees)
{
    return currentLocale().toString(degrees, 'f', QLocale::FloatingPointShortest);
}

QString DegreesText::shortText(double degrees)
{
    constexpr int decimals = 1;
    return currentLocale().toString(std::round(degrees * 10) / 10 + 0.0, 'f', decimals); // no negative zero
}
