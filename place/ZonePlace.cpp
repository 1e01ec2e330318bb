// SPDX-License-Identifier: MIT
#include "place/ZonePlace.h"

#include <unicode/timezone.h>

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <fstream>
#include <system_error>
#include <vector>

namespace {

/// Removes the part before the first `separator`, and the separator, from `text`; returns the part.
std::string_view takeUntil(std::string_view& text, char separator)
{
    const std::size_t end = std::min(text.find(separator), text.size());
    const std::string_view part = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return part;
}

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// The degrees in a text of a sign, `degreeDigits` digits of degrees, two of minutes and optionally two of seconds.
std::optional<double> angle(std::string_view text, std::size_t degreeDigits)
{
    const bool isSigned = !text.empty() && (text[0] == '+' || text[0] == '-');
    if (!isSigned || !std::all_of(text.begin() + 1, text.end(), isDigit)) {
        return std::nullopt;
    }
    const auto number = [&](std::size_t begin, std::size_t digits) {
        int value = 0;
        const std::string_view part = text.substr(std::min(begin, text.size()), digits);
        std::from_chars(part.data(), part.data() + part.size(), value); // stays 0 without digits
        return value;
    };
    const int degrees = number(1, degreeDigits);
    const int minutes = number(1 + degreeDigits, 2);
    const int seconds = number(3 + degreeDigits, 2);
    const int inSeconds = (degrees * 60 + minutes) * 60 + seconds;
    if (minutes >= 60 || seconds >= 60) {
        return std::nullopt;
    }
    return (text[0] == '-' ? -inSeconds : inSeconds) / 3600.0;
}

struct Row {
    std::string_view zone;
    Coordinate place;
};

/// The well-formed rows of a table of places.
std::vector<Row> rowsOf(std::string_view table)
{
    std::vector<Row> rows;
    while (!table.empty()) {
        std::string_view line = takeUntil(table, '\n');
        if (line.starts_with('#')) {
            continue;
        }
        takeUntil(line, '\t');
        const std::optional<Coordinate> place = ZonePlace::placeFromIso6709(takeUntil(line, '\t'));
        const std::string_view zone = takeUntil(line, '\t');
        if (place && ZonePlace::isZoneName(zone)) {
            rows.push_back({zone, *place});
        }
    }
    return rows;
}

std::optional<Coordinate> placeInRows(const ZonePlace::Database& database, std::string_view zone)
{
    for (const std::string_view table : {database.zone1970Tab, database.zoneTab}) {
        const std::vector<Row> rows = rowsOf(table);
        const auto row = std::ranges::find(rows, zone, &Row::zone);
        if (row != rows.end()) {
            return row->place;
        }
    }
    return std::nullopt;
}

/// The zone that `zone` is an alias of, which may be an alias itself; empty when it is not an alias.
std::string_view linkTarget(std::string_view rules, std::string_view zone)
{
    while (!rules.empty()) {
        std::string_view line = takeUntil(rules, '\n');
        if (takeUntil(line, ' ') != "L") {
            continue;
        }
        const std::string_view target = takeUntil(line, ' ');
        if (line == zone) {
            return target;
        }
    }
    return {};
}

/// ICU's name for the zone; empty when ICU does not know it.
std::string canonicalName(std::string_view zone)
{
    UErrorCode status = U_ZERO_ERROR;
    icu::UnicodeString canonical;
    icu::TimeZone::getCanonicalID(
        icu::UnicodeString::fromUTF8(icu::StringPiece(zone.data(), static_cast<int32_t>(zone.size()))), canonical,
        status);
    std::string name;
    return U_SUCCESS(status) ? canonical.toUTF8String(name) : name;
}

/// The place of a row whose zone file is, through a symbolic or hard link, the same as that of `zone`.
std::optional<Coordinate> placeOfSameFile(const ZonePlace::Database& database, const std::string& zone,
                                          const std::filesystem::path& folder)
{
    for (const std::string_view table : {database.zone1970Tab, database.zoneTab}) {
        for (const Row& row : rowsOf(table)) {
            std::error_code error;
            if (std::filesystem::equivalent(folder / zone, folder / row.zone, error)) {
                return row.place;
            }
        }
    }
    return std::nullopt;
}

/// The file's bytes; empty when there is no such regular file, or when it is larger than any table can be.
std::string content(const std::filesystem::path& file)
{
    constexpr std::uintmax_t limit = 4U << 20U; // thirty times the size of the longest table
    std::error_code error;
    if (!std::filesystem::is_regular_file(file, error)) {
        return {};
    }
    const std::uintmax_t size = std::filesystem::file_size(file, error);
    if (error || size > limit) {
        return {};
    }
    std::string bytes(size, '\0');
    std::ifstream stream(file, std::ios::binary);
    stream.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    bytes.resize(static_cast<std::size_t>(stream.gcount()));
    return bytes;
}

} // namespace

bool ZonePlace::isZoneName(std::string_view zone)
{
    const auto isPart = [](char c) {
        return isDigit(c) || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' || c == '-' || c == '+';
    };
    constexpr std::size_t longestName = 255;
    return !zone.empty() && zone.size() <= longestName && zone.front() != '/' && zone.back() != '/' &&
           zone.find("//") == std::string_view::npos &&
           std::ranges::all_of(zone, [&](char c) { return isPart(c) || c == '/'; });
}

std::optional<Coordinate> ZonePlace::placeFromIso6709(std::string_view text)
{
    constexpr std::size_t withMinutes = std::string_view("+DDMM+DDDMM").size();
    constexpr std::size_t withSeconds = std::string_view("+DDMMSS+DDDMMSS").size();
    if (text.size() != withMinutes && text.size() != withSeconds) {
        return std::nullopt;
    }
    const std::size_t middle = text.size() / 2; // the longitude has one digit more
    const std::optional<double> latitude = angle(text.substr(0, middle), 2);
    const std::optional<double> longitude = angle(text.substr(middle), 3);
    return latitude && longitude ? coordinateFrom(*latitude, *longitude) : std::nullopt;
}

// The database's links join zones whose clocks agree, across borders: by them Iceland would be in Abidjan. ICU's names
// do not cross borders, but are not always those of the tables. So ICU is asked first, and the links are followed only
// when that finds nothing.
std::optional<Coordinate> ZonePlace::placeInDatabase(const Database& database, std::string_view zone)
{
    constexpr int mostLinks = 8; // a broken database may have links in a circle
    if (!isZoneName(zone)) {
        return std::nullopt;
    }
    if (const std::optional<Coordinate> place = placeInRows(database, zone)) {
        return place;
    }
    if (const std::optional<Coordinate> place = placeInRows(database, canonicalName(zone))) {
        return place;
    }
    for (int links = 0; links < mostLinks && !zone.empty(); ++links) {
        zone = linkTarget(database.tzdataZi, zone);
        if (const std::optional<Coordinate> place = placeInRows(database, zone)) {
            return place;
        }
    }
    return std::nullopt;
}

std::optional<Coordinate> ZonePlace::placeOfZone(const std::string& zone, const std::filesystem::path& folder)
{
    const Database database{content(folder / "zone1970.tab"), content(folder / "zone.tab"),
                            content(folder / "tzdata.zi")};
    if (const std::optional<Coordinate> place = placeInDatabase(database, zone)) {
        return place;
    }
    return isZoneName(zone) ? placeOfSameFile(database, zone, folder) : std::nullopt;
}
