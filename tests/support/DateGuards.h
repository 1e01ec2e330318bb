// SPDX-License-Identifier: MIT
#pragma once

#include "dates/Clock.h"
#include "support/FixedClock.h"

#include <string>
#include <vector>

/// Each guard puts something else in force for its lifetime and the former back at its end; the guards of a scope nest.

class TimeZoneGuard {
public:
    explicit TimeZoneGuard(const std::string& identifier);
    TimeZoneGuard(const TimeZoneGuard&) = delete;
    TimeZoneGuard& operator=(const TimeZoneGuard&) = delete;
    ~TimeZoneGuard();

private:
    std::string m_former;
};

class LocaleGuard {
public:
    /// `preferredLanguages` must not be empty.
    LocaleGuard(std::string currentLocale, std::vector<std::string> preferredLanguages);
    LocaleGuard(const LocaleGuard&) = delete;
    LocaleGuard& operator=(const LocaleGuard&) = delete;
    ~LocaleGuard();

private:
    LocalePair m_former;
};

class ClockGuard {
public:
    /// `clock` must outlive the guard.
    explicit ClockGuard(const Clock& clock);
    ClockGuard(const ClockGuard&) = delete;
    ClockGuard& operator=(const ClockGuard&) = delete;
    ~ClockGuard();

private:
    const Clock& m_former;
};

/// The instant of a UTC date and time, worked out without a calendar of the program.
Date utcDate(int year, unsigned month, unsigned day, int hour = 0, int minute = 0, int second = 0);
