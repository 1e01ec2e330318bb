// SPDX-License-Identifier: MIT
#pragma once

/// A place on the earth, in degrees: `latitude` north of the equator and `longitude` east of Greenwich are positive.
struct Coordinate {
    double latitude = 0;
    double longitude = 0;

    bool operator==(const Coordinate&) const = default;
};

inline constexpr double greatestLatitude = 90;   ///< the poles
inline constexpr double greatestLongitude = 180; ///< where east meets west
