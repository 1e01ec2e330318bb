// SPDX-License-Identifier: MIT
#pragma once

#include "plist/Value.h"

constexpr int lifetimeNotes = 36'525; ///< a note a day for a hundred years; about 18 MB in XML
constexpr int decadeNotes = 3'650;

/// The word that `makeLifetimeNotes` puts into every thousandth note and nowhere else (37 of `lifetimeNotes`).
constexpr const char* rareWord = "Zanzibar";

/// `count` notes, one a day from 1 January 1970, 00:00 UTC, each with about 400 bytes in several lines and some
/// umlauts. The same count gives the same notes everywhere.
Table makeLifetimeNotes(int count = lifetimeNotes);
