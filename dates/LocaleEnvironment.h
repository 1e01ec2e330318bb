// SPDX-License-Identifier: MIT
#pragma once

#include "dates/Clock.h"

#include <functional>
#include <string>
#include <string_view>

/// Reads an environment variable; empty when it is not set.
using ReadEnvironment = std::function<std::string(const char* name)>;

/// The ICU identifier of a locale that has the C library's form: "de_DE" for "de_DE.UTF-8@euro", "sr_Latn_RS" for
/// "sr_RS@latin". "C", "POSIX", an empty name and one that fails `isLocaleIdentifier` give "en_US".
std::string localeIdentifier(std::string_view posixName);

/// The current locale comes from the first of LC_ALL, LC_TIME and LANG that is set; the preferred languages from the
/// list in LANGUAGE, else from LC_ALL, LC_MESSAGES or LANG. List entries that fail `isLocaleIdentifier`, and those
/// after the 64th, are left out. Every entry of the result can be handed to ICU as it is.
LocalePair localePairFrom(const ReadEnvironment& read);
