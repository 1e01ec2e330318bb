// SPDX-License-Identifier: MIT
#include "app/EnteredPlace.h"

#include "app/PreferenceKeys.h"
#include "host/UserDefaults.h"

std::optional<Coordinate> enteredPlace(const UserDefaults& defaults)
{
    const std::optional<double> latitude = defaults.numberForKey(PreferenceKeys::latitude);
    const std::optional<double> longitude = defaults.numberForKey(PreferenceKeys::longitude);
    return latitude && longitude ? coordinateFrom(*latitude, *longitude) : std::nullopt;
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
