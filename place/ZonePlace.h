// SPDX-License-Identifier: MIT
#pragma once

#include "place/Coordinate.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

/// Where the principal city of a time zone lies, from the machine's time-zone database (tzdata): the place to assume
/// for a user of whom only the zone is known. Nothing throws; malformed parts of the database are ignored.
namespace ZonePlace {

/// The place of an ISO 6709 text such as "+5230+01322" (degrees and minutes) or "-720041+0023206" (and seconds);
/// nullopt for any other form, for 60 minutes or seconds, and for a place beyond a pole or the 180th meridian.
std::optional<Coordinate> placeFromIso6709(std::string_view text);

/// Whether `zone` has the form of a zone name, like "America/Argentina/La_Rioja" or "Etc/GMT+5": words between single
/// slashes, without dots, so that it cannot lead out of the database's folder.
bool isZoneName(std::string_view zone);

/// The contents of the database's three files of places and names.
struct Database {
    /// Rows of country codes, an ISO 6709 place, a zone and an optional remark, separated by tabs; "#" begins a
    /// comment.
    std::string zone1970Tab;
    std::string zoneTab;  ///< likewise, with a row for each country, and so with more zones
    std::string tzdataZi; ///< only its lines "L target name" are used, which give a zone another name
};

/// The place of `zone` by the rows of the tables, or else of the zone that it is an alias of.
std::optional<Coordinate> placeInDatabase(const Database& database, std::string_view zone);

/// The place of the IANA zone `zone`, for example "Europe/Berlin", by the database in `folder`. A former or other name
/// ("Asia/Calcutta", "US/Eastern") has the place of its zone, whether tzdata.zi or a link in the file system makes it
/// an alias. nullopt for a zone without a city (UTC, Etc/GMT+5), an unknown or malformed name, and a database that is
/// missing or cannot be read.
std::optional<Coordinate> placeOfZone(const std::string& zone, const std::filesystem::path& folder);

} // namespace ZonePlace
