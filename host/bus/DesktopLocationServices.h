// SPDX-License-Identifier: MIT
#pragma once

#include "host/bus/DesktopLocationManager.h"

#include <utility>

/// Location services that are always enabled, since the zone's city is always available. Whether the desktop has a
/// service, and whether it lets the program use it, shows only on asking.
class DesktopLocationServices : public LocationServices {
public:
    explicit DesktopLocationServices(DesktopLocationManager::Sources sources) : m_sources(std::move(sources)) {}

    bool locationServicesEnabled() const override { return true; }
    LocationAuthorizationStatus authorizationStatus() const override
    {
        return LocationAuthorizationStatus::NotDetermined;
    }
    std::unique_ptr<LocationManager> makeLocationManager() override
    {
        return std::make_unique<DesktopLocationManager>(m_sources);
    }

private:
    DesktopLocationManager::Sources m_sources;
};
