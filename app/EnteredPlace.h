// SPDX-License-Identifier: MIT
#pragma once

#include "place/Coordinate.h"

#include <optional>

class UserDefaults;

/// The place that the user entered in the preferences; nothing when none was, or what is stored is no place.
std::optional<Coordinate> enteredPlace(const UserDefaults& defaults);

/// Nothing takes the entry back.
void setEnteredPlace(const std::optional<Coordinate>& place, UserDefaults& defaults);
