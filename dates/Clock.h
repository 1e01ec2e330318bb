// SPDX-License-Identifier: MIT
#pragma once

#include "dates/Date.h"

#include <optional>
#include <string>
#include <vector>

/// Tells the present instant. The program has one, tests hand in one that stands still.
class Clock {
public:
    Clock() = default;
    Clock(const Clock&) = delete;
    Clock& operator=(const Clock&) = delete;
    virtual ~Clock() = default;

    virtual Date now() const = 0;
};

/// The two sources of language, kept apart: formats of dates follow the current locale, names of months and texts the
/// preferred languages. Every entry is one that ICU can work with (`isLocaleIdentifier`).
struct LocalePair {
    std::string currentLocale = "en_US";                     ///< ICU identifier, for example "de_DE"
    std::vector<std::string> preferredLanguages = {"en-US"}; ///< first entry preferred; never empty

    bool operator==(const LocalePair&) const = default;
};

/// What every date operation takes its present instant, languages and zone from. The entry point sets it once, before
/// anything is drawn; the zone is set again when the desktop's changes. Tests set it through guards that restore it.
/// Setters belong to the main thread; readers may run on any thread while no setter runs.
namespace DateEnvironment {

/// The system's clock, the one in force until another is set.
const Clock& systemClock();

/// `clock` must outlive its time in force.
void setClock(const Clock& clock);
const Clock& clock();
Date now();

void setLocalePair(LocalePair pair);
const LocalePair& localePair();

/// Makes the IANA zone `identifier` (for example "Europe/Berlin") the process's time zone, for ICU and the C library.
/// An empty identifier means the zone that the system is set to: the one in `TZ`, as `setSystemZoneVariable` was given
/// it, else the machine's, read anew. An unknown one counts as UTC. The rules are the machine's (tzdata) where it knows
/// the zone; until the first call ICU goes by its own, older ones, so the entry point calls this even for the machine's
/// zone.
void setTimeZone(const std::string& identifier);

/// The value of the environment variable `TZ` at the process's start, nullopt when it was not set, as before the first
/// call. The entry point tells it: `setTimeZone` changes the variable.
void setSystemZoneVariable(std::optional<std::string> value);

/// What `setTimeZone` was last given, so that a guard can put it back; empty at the start.
const std::string& timeZone();

/// The IANA name of the process's time zone, the system's as well, for example "Europe/Berlin".
std::string nameOfZoneInForce();

} // namespace DateEnvironment
