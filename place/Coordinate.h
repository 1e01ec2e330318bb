// SPDX-License-Identifier: MIT
#pragma once

#include <cmath>
#include <optional>

/// A place on the earth, in degrees: `latitude` north of the equator and `longitude` east of Greenwich are positive.
struct Coordinate {
    double latitude = 0;
    double longitude = 0;

    bool operator==(const Coordinate&) const = default;
};

inline constexpr double greatestLatitude = 90;   ///< the poles
inline constexpr double greatestLongitude = 180; ///< the meridian opposite Greenwich

/// `degrees` when it lies between -`greatest` and `greatest`, else nullopt.
inline std::optional<double> angleWithin(double degrees, double greatest)
{
    return std::abs(degrees) <= greatest ? std::optional(degrees) : std::nullopt; // false for a NaN as well
}

/// nullopt for a pair that is not a place on the earth.
inline std::optional<Coordinate> coordinateFrom(double latitude, double longitude)
{
    return angleWithin(latitude, greatestLatitude) && angleWithin(longitude, greatestLongitude)
               ? std::optional(Coordinate{latitude, longitude})
               : std::nullopt;
}
