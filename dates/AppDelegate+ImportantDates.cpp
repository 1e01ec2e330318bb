// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"
#include "app/Localized.h"
#include "dates/ElapsedDate.h"
#include "store/Record.h"

QString AppDelegate::calcElapsedDate(const Value& event) const
{
    const std::optional<Date> date = dateOf(event, EventDateKey);
    if (!date) {
        return {};
    }
    const ElapsedUnitWords words{.year = localized("Year"),
                                 .years = localized("Years"),
                                 .month = localized("Month"),
                                 .months = localized("Months"),
                                 .day = localized("Day"),
                                 .days = localized("Days")};
    return elapsedDateText(*date, DateEnvironment::now(), words);
}
