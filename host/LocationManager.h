// SPDX-License-Identifier: MIT
#pragma once

/// Tells where the user is.
class LocationManager {
public:
    LocationManager() = default;
    LocationManager(const LocationManager&) = delete;
    LocationManager& operator=(const LocationManager&) = delete;
    virtual ~LocationManager() = default;

    /// Asks for one position; returns at once.
    virtual void startUpdatingLocation() = 0;
};
