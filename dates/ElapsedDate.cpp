// SPDX-License-Identifier: MIT
#include "dates/ElapsedDate.h"

#include "dates/DateUtilities.h"

#include <cstdlib>

namespace {

QString counted(int signedCount, const QString& one, const QString& many)
{
    const int count = std::abs(signedCount);
    if (count == 0) {
        return {};
    }
    return QString::number(count) + u' ' + (count == 1 ? one : many);
}

} // namespace

QString elapsedDateText(Date event, Date now, const ElapsedUnitWords& words)
{
    const DateComponents elapsed =
        DateUtilities::diffDate(event, now, CalendarUnit::Year | CalendarUnit::Month | CalendarUnit::Day);
    if (elapsed == DateComponents()) {
        return QStringLiteral("0 %1, 0 %2, 0 %3 ").arg(words.years, words.months, words.days);
    }
    return counted(elapsed.year, words.year, words.years) + u' ' + counted(elapsed.month, words.month, words.months) +
           u' ' + counted(elapsed.day, words.day, words.days);
}
