// SPDX-License-Identifier: MIT
#include "support/DateGuards.h"

#include <utility>

TimeZoneGuard::TimeZoneGuard(const std::string& identifier) : m_former(DateEnvironment::timeZone())
{
    DateEnvironment::setTimeZone(identifier);
}

TimeZoneGuard::~TimeZoneGuard()
{
    DateEnvironment::setTimeZone(m_former);
}

LocaleGuard::LocaleGuard(std::string currentLocale, std::vector<std::string> preferredLanguages)
    : m_former(DateEnvironment::localePair())
{
    DateEnvironment::setLocalePair({std::move(currentLocale), std::move(preferredLanguages)});
}

LocaleGuard::~LocaleGuard()
{
    DateEnvironment::setLocalePair(std::move(m_former));
}

ClockGuard::ClockGuard(const Clock& clock) : m_former(DateEnvironment::clock())
{
    DateEnvironment::setClock(clock);
}

ClockGuard::~ClockGuard()
{
    DateEnvironment::setClock(m_former);
}

Date utcDate(int year, unsigned month, unsigned day, int hour, int minute, int second)
{
    using namespace std::chrono;
    const sys_days midnight = std::chrono::year(year) / std::chrono::month(month) / std::chrono::day(day);
    return Date(midnight) + hours(hour) + minutes(minute) + seconds(second);
}
