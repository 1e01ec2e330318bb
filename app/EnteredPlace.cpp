// SPDX-License-Identifier: MIT
#include "app/EnteredPlace.h"

#include "app/PreferenceKeys.h"
#include "host/UserDefaults.h"

#include <cmath>

namespace {

std::optional<double> storedAngle(const UserDefaults& defaults, const QString& key, double limit)
{
    const std::optional<double> degrees = defaults.numberForKey(key);
    const bool isAngle = degrees && std::abs(*degrees) <= limit; // false for what is not a number, too
    return isAngle ? degrees : std::nullopt;
}

} // namespace

std::optional<Coordinate> enteredPlace(const UserDefaults& defaults)
{
    const std::optional<double> latitude = storedAngle(defaults, PreferenceKeys::latitude, greatestLatitude);
    const std::optional<double> longitude = storedAngle(defaults, PreferenceKeys::longitude, greatestLongitude);
    return latitude && longitude ? std::optional(Coordinate{*latitude, *longitude}) : std::nullopt;
}

void setEnteredPlace(const std::optional<Coordinate>& place, UserDefaults& defaults)
{
    if (place) {
        defaults.setNumber(place->latitude, PreferenceKeys::latitude);
        defaults.setNumber(place->longitude, PreferenceKeys::longitude);
    } else {
        defaults.removeObjectForKey(PreferenceKeys::latitude);
        defaults.removeObjectForKey(PreferenceKeys::longitude);
    }
    defaults.synchronize();
}
