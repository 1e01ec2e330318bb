// SPDX-License-Identifier: MIT
#include "calendar/SpokenDays.h"

#include "dates/Clock.h"
#include "dates/DateUtilities.h"
#include "text/Localized.h"

SpokenDays::SpokenDays() : m_now(DateEnvironment::now())
{
    m_formatter.setDateStyle(DateFormatter::Style::Full);
}

QString SpokenDays::of(Date day) const
{
    return of(day, m_formatter.stringFromDate(day));
}

QString SpokenDays::of(Date day, const QString& words) const
{
    return isToday(day) ? filled(localized("%@, today"), {words}) : words;
}

bool SpokenDays::isToday(Date day) const
{
    return DateUtilities::isThisDate(day, m_now);
}
