// SPDX-License-Identifier: MIT
#pragma once

#include <unicode/timezone.h>

#include <memory>
#include <string>

/// The zone `identifier` by the machine's own rules (tzdata), for ICU's calendars; null when the machine does not know
/// the zone. Main thread only.
///
/// ICU's own copy of the world's zone rules is as old as the library. The desktop's clock, the C library and Qt read
/// the machine's rules, which are kept up to date. By ICU's copy, a day would begin an hour off wherever the rules have
/// changed since.
std::unique_ptr<icu::TimeZone> systemTimeZone(const std::string& identifier);
