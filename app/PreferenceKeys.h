// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// The keys of the user defaults. Values are integers unless another kind is named.
namespace PreferenceKeys {

/// 0 is Monday, anything else Sunday.
inline const QString weekStart = QStringLiteral("Sunday or Monday for start of week");

/// 0 is the current month's notes, anything else all notes.
inline const QString startList = QStringLiteral("Show all velumora or just current month velumora");

/// 1 once the notes of an older file were stripped of what this program does not use.
inline const QString notesCleaned = QStringLiteral("Velumora Dictionary cleaned of old TALV unused data");

/// The entered place in degrees, north and east positive: a number each. Both or none is stored.
inline const QString latitude = QStringLiteral("Latitude for sunrise and sunset");
inline const QString longitude = QStringLiteral("Longitude for sunrise and sunset");

} // namespace PreferenceKeys
