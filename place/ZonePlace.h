// SPDX-License-Identifier: MIT
#pragma once

#include "place/Coordinate.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

/// Where the principal city of a time zone lies, from the machine's time-zone database (tzdata): the place to assume
/// for a user of whom nothing but the zone is known. Nothing throws; what a broken file says wrongly counts as not
/// said.
namespace ZonePlace {

/// The place that an ISO 6709 text such as "+5230+01322" (degrees and minutes) or "-720041+0023206" (and seconds)
/// stands for; nothing for any other form, and for 60 minutes or a place beyond a pole or the 180th meridian.
std::optional<Coordinate> placeFromIso6709(std::string_view text);

/// Whether a zone can have the name, as "America/Argentina/La_Rioja" and "Etc/GMT+5": words between single slashes, so
/// that it is no way out of the database's folder.
bool isZoneName(std::string_view zone);

/// The contents of the three files of the database that tell of places and names.
struct Database {
    std::string
        zone1970Tab;     ///< rows of countries, an ISO 6709 place, a zone, perhaps a remark, tabs between; "#" comments
    std::string zoneTab; ///< likewise, with a row for each country, so it knows more zones
    std::string tzdataZi; ///< "L target name" where a zone has another name; the rules around them are not looked at
};

/// The place of `zone` by the rows of the tables; failing that, by those of the zone that it is another name of.
std::optional<Coordinate> placeInDatabase(const Database& database, std::string_view zone);

/// The place of the IANA zone `zone`, for example "Europe/Berlin", by the database in `folder`. A former or other name
/// ("Asia/Calcutta", "US/Eastern") has the place of its zone, whether tzdata.zi or a link in the file system says so.
/// Nothing for a zone without a city (UTC, Etc/GMT+5), an unknown or malformed name, and a database that is not there
/// or cannot be read.
std::optional<Coordinate> placeOfZone(const std::string& zone, const std::filesystem::path& folder);

} // namespace ZonePlace
