// SPDX-License-Identifier: MIT
#include "dates/Clock.h"

#include "dates/SystemTimeZone.h"

#include <unicode/timezone.h>

#include <cstdlib>
#include <ctime>
#include <memory>
#include <optional>
#include <utility>

namespace {

class SystemClock final : public Clock {
public:
    Date now() const override { return std::chrono::system_clock::now(); }
};

struct Environment {
    const Clock* clock = &DateEnvironment::systemClock();
    LocalePair localePair;
    std::string timeZone;
    std::optional<std::string> systemZoneVariable;
};

Environment& environment()
{
    static Environment theEnvironment;
    return theEnvironment;
}

void setZoneVariable(const std::optional<std::string>& value)
{
    if (value) {
        setenv("TZ", value->c_str(), 1);
    } else {
        unsetenv("TZ");
    }
    tzset();
}

std::string nameOf(const icu::TimeZone& zone)
{
    icu::UnicodeString identifier;
    std::string utf8;
    return zone.getID(identifier).toUTF8String(utf8);
}

/// The zone by the machine's rules, else by ICU's own, else ICU's unknown zone.
std::unique_ptr<icu::TimeZone> zoneNamed(const std::string& identifier)
{
    if (std::unique_ptr<icu::TimeZone> zone = systemTimeZone(identifier)) {
        return zone;
    }
    return std::unique_ptr<icu::TimeZone>(icu::TimeZone::createTimeZone(icu::UnicodeString::fromUTF8(identifier)));
}

/// The zone that TZ and the machine's configuration name at this moment.
std::unique_ptr<icu::TimeZone> hostZone()
{
    std::unique_ptr<icu::TimeZone> detected(icu::TimeZone::detectHostTimeZone());
    std::unique_ptr<icu::TimeZone> zone = systemTimeZone(nameOf(*detected));
    return zone ? std::move(zone) : std::move(detected);
}

} // namespace

const Clock& DateEnvironment::systemClock()
{
    static const SystemClock theClock;
    return theClock;
}

void DateEnvironment::setClock(const Clock& clock)
{
    environment().clock = &clock;
}

const Clock& DateEnvironment::clock()
{
    return *environment().clock;
}

Date DateEnvironment::now()
{
    return clock().now();
}

void DateEnvironment::setLocalePair(LocalePair pair)
{
    environment().localePair = std::move(pair);
}

const LocalePair& DateEnvironment::localePair()
{
    return environment().localePair;
}

void DateEnvironment::setSystemZoneVariable(std::optional<std::string> value)
{
    environment().systemZoneVariable = std::move(value);
}

void DateEnvironment::setTimeZone(const std::string& identifier)
{
    environment().timeZone = identifier;
    if (identifier.empty()) {
        setZoneVariable(environment().systemZoneVariable);
        icu::TimeZone::adoptDefault(hostZone().release());
        return;
    }
    std::unique_ptr<icu::TimeZone> zone = zoneNamed(identifier);
    const bool known = *zone != icu::TimeZone::getUnknown();
    setZoneVariable(known ? identifier : "UTC");
    icu::TimeZone::adoptDefault(known ? zone.release() : icu::TimeZone::createTimeZone("UTC"));
}

const std::string& DateEnvironment::timeZone()
{
    return environment().timeZone;
}

std::string DateEnvironment::nameOfZoneInForce()
{
    return nameOf(*std::unique_ptr<icu::TimeZone>(icu::TimeZone::createDefault()));
}
