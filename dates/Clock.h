// SPDX-License-Identifier: MIT
#pragma once

#include "dates/Date.h"

#include <optional>
#include <string>
#include <vector>

/// Tells the present instant. The program has a single one; tests substitute one that stands still.
class Clock {
public:
    Clock() = default;
    Clock(const Clock&) = delete;
    Clock& operator=(const Clock&) = delete;
    virtual ~Clock() = default;

    virtual Date now() const = 0;
};

/// The two sources of language, kept apart: date formats follow the current locale; month names and texts follow the
/// preferred languages. Every entry satisfies `isLocaleIdentifier`.
struct LocalePair {
    std::string currentLocale = "en_US";                     ///< ICU identifier, for example "de_DE"
    std::vector<std::string> preferredLanguages = {"en-US"}; ///< first entry preferred; never empty

    bool operator==(const LocalePair&) const = default;
};

/// The clock, the languages and the time zone of every date operation. The entry point sets them once, before anything
/// is drawn, and sets the zone again when the desktop's changes. Tests set them through guards that restore them.
/// Setters belong to the main thread; readers may run on any thread as long as no setter does.
namespace DateEnvironment {

/// The system's clock, in use until another is set.
const Clock& systemClock();

/// `clock` must live until another one is set.
void setClock(const Clock& clock);
const Clock& clock();
Date now();

void setLocalePair(LocalePair pair);
const LocalePair& localePair();

/// Makes the IANA zone `identifier` (for example "Europe/Berlin") the process's time zone, for ICU and the C library
/// alike. An empty identifier means the system's zone: the one in `TZ` as given to `setSystemZoneVariable`, else the
/// machine's, read anew. An unknown identifier means UTC. The rules are the machine's (tzdata) where it knows the zone.
/// Until the first call ICU uses its own, older rules, so the entry point calls this even for the system's zone.
void setTimeZone(const std::string& identifier);

/// Tells `setTimeZone` the value of the environment variable `TZ` at the process's start; nullopt, as before the first
/// call, when it was not set. Needed because `setTimeZone` overwrites the variable.
void setSystemZoneVariable(std::optional<std::string> value);

/// The last argument of `setTimeZone`, so that a guard can restore it; empty at the start.
const std::string& timeZone();

/// The IANA name of the process's time zone, for example "Europe/Berlin", also when it is the system's.
std::string nameOfZoneInForce();

} // namespace DateEnvironment
