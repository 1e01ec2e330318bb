// SPDX-License-Identifier: MIT
#include "support/DateGuards.h"

#include <gtest/gtest.h>

using namespace std::chrono_literals;

namespace {

TEST(DateEnvironment, TheSystemClockIsInForceUntilAnotherIsSet)
{
    EXPECT_EQ(&DateEnvironment::clock(), &DateEnvironment::systemClock());
    const Date before = std::chrono::system_clock::now();
    const Date now = DateEnvironment::now();
    const Date after = std::chrono::system_clock::now();
    EXPECT_LE(before, now);
    EXPECT_LE(now, after);
}

TEST(DateEnvironment, AFixedClockMovesOnlyWhenTold)
{
    FixedClock clock(utcDate(2024, 3, 5));
    {
        const ClockGuard guard(clock);
        EXPECT_EQ(DateEnvironment::now(), utcDate(2024, 3, 5));
        clock.advance(90min);
        EXPECT_EQ(DateEnvironment::now(), utcDate(2024, 3, 5, 1, 30));
        clock.set(utcDate(1999, 12, 31));
        EXPECT_EQ(DateEnvironment::now(), utcDate(1999, 12, 31));
    }
    EXPECT_EQ(&DateEnvironment::clock(), &DateEnvironment::systemClock());
}

TEST(DateEnvironment, TheZoneInForceIsNamedTheSystemsAndAnUnknownOneAsWell)
{
    const TimeZoneGuard outer("Asia/Kolkata");
    EXPECT_EQ(DateEnvironment::nameOfZoneInForce(), "Asia/Kolkata");
    {
        const TimeZoneGuard unknown("Mars/Olympus");
        EXPECT_EQ(DateEnvironment::nameOfZoneInForce(), "UTC");
        const TimeZoneGuard systems("");
        EXPECT_NE(DateEnvironment::nameOfZoneInForce(), "");
    }
    EXPECT_EQ(DateEnvironment::nameOfZoneInForce(), "Asia/Kolkata");
}

TEST(DateEnvironment, TheSystemsZoneIsTheOneOfTheVariableThatTheEntryPointTold)
{
    const TimeZoneGuard outer("Asia/Kolkata");
    DateEnvironment::setSystemZoneVariable("America/Lima");
    {
        const TimeZoneGuard systems("");
        EXPECT_EQ(DateEnvironment::nameOfZoneInForce(), "America/Lima");
    }
    DateEnvironment::setSystemZoneVariable(std::nullopt);
}

TEST(DateEnvironment, ALocaleGuardPutsTheFormerPairBack)
{
    const LocaleGuard outer("de_DE", {"de"});
    {
        const LocaleGuard inner("fa_IR", {"fa", "en"});
        EXPECT_EQ(DateEnvironment::localePair().preferredLanguages.front(), "fa");
    }
    EXPECT_EQ(DateEnvironment::localePair(), (LocalePair{"de_DE", {"de"}}));
}

} // namespace
