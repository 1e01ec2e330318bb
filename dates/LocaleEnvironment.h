// SPDX-License-Identifier: MIT
#pragma once

#include "dates/Clock.h"

#include <functional>
#include <string>
#include <string_view>

/// Reads one environment variable; an unset one as the empty text.
using ReadEnvironment = std::function<std::string(const char* name)>;

/// The ICU identifier of a locale named as the C library names it: "de_DE.UTF-8@euro" is "de_DE", "sr_RS@latin" is
/// "sr_Latn_RS". "C", "POSIX", the empty name and one that is no `isLocaleIdentifier` count as "en_US".
std::string localeIdentifier(std::string_view posixName);

/// The current locale from LC_ALL, LC_TIME, LANG (the first that is set); the preferred languages from the list in
/// LANGUAGE, else from LC_ALL, LC_MESSAGES, LANG. Of the list, entries that are no `isLocaleIdentifier` are left out,
/// as are those behind the 64th. What this returns is settled: every user of the pair may hand it on to ICU as it
/// stands.
LocalePair localePairFrom(const ReadEnvironment& read);
