// SPDX-License-Identifier: MIT
#include "text/IntegerValue.h"

#include "text/CodePoint.h"

#include <unicode/uchar.h>

#include <algorithm>
#include <cstdint>
#include <limits>

namespace {

bool isSign(QChar character)
{
    return character == u'-' || character == u'+';
}

/// Right-to-left locales may put a direction mark before a sign or a number.
bool isBlank(QChar character)
{
    return character.isSpace() || character.category() == QChar::Other_Format;
}

} // namespace

int integerValue(QStringView text)
{
    constexpr std::int64_t outOfRange = std::int64_t{std::numeric_limits<int>::max()} + 1;
    while (!text.isEmpty() && isBlank(text.front())) {
        text = text.sliced(1);
    }
    const bool negative = text.startsWith(u'-');
    if (!text.isEmpty() && isSign(text.front())) {
        text = text.sliced(1);
    }
    std::int64_t magnitude = 0;
    while (!text.isEmpty()) {
        const int digit = u_charDigitValue(static_cast<UChar32>(takeCodePoint(text)));
        if (digit < 0) {
            break;
        }
        magnitude = std::min(magnitude * 10 + digit, outOfRange);
    }
    const std::int64_t value = negative ? -magnitude : magnitude;
    return static_cast<int>(std::min<std::int64_t>(value, std::numeric_limits<int>::max()));
}
