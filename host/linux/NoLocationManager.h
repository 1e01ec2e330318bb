// SPDX-License-Identifier: MIT
#pragma once

#include "host/LocationManager.h"

/// For a desktop without a location service: no position is ever told.
class NoLocationManager : public LocationManager {
public:
    void startUpdatingLocation() override {}
};
