// SPDX-License-Identifier: MIT
#pragma once

#include <unicode/timezone.h>

#include <memory>
#include <string>

/// The zone `identifier` by the machine's own rules (tzdata), for ICU's calendars; null when the machine does not know
/// it.
///
/// ICU carries a copy of the world's zone rules that is as old as the library. The desktop's clock, the C library and
/// Qt read the machine's, which are kept up to date: by the older ones the calendar's day would begin an hour off in
/// each country that has changed its rules since.
std::unique_ptr<icu::TimeZone> systemTimeZone(const std::string& identifier);
