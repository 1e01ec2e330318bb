// SPDX-License-Identifier: MIT
#include "host/bus/DesktopLocationManager.h"

#include "dates/Clock.h"
#include "host/bus/GeoClueClient.h"
#include "place/ZonePlace.h"

#include <utility>

DesktopLocationManager::DesktopLocationManager(Sources sources) : m_sources(std::move(sources)) {}

DesktopLocationManager::~DesktopLocationManager() = default;

// Deferred to the event loop, so that the window is drawn first.
void DesktopLocationManager::requestLocation()
{
    QMetaObject::invokeMethod(
        this,
        [this] {
            tellBestLocation();
            askService();
        },
        Qt::QueuedConnection);
}

std::optional<Location> DesktopLocationManager::bestLocation() const
{
    const auto found = [](const std::optional<Coordinate>& place, Location::Source source) {
        return place ? std::optional(Location{*place, source}) : std::nullopt;
    };
    if (m_serviceCoordinate) {
        return found(m_serviceCoordinate, Location::Source::LocationService);
    }
    if (const std::optional<Coordinate> entered = m_sources.enteredCoordinate()) {
        return found(entered, Location::Source::Preferences);
    }
    return found(ZonePlace::placeOfZone(DateEnvironment::nameOfZoneInForce(), m_sources.zoneDatabase),
                 Location::Source::ZoneCity);
}

void DesktopLocationManager::tellBestLocation()
{
    if (const std::optional<Location> best = bestLocation(); best && m_delegate) {
        m_delegate->didUpdateLocations(*this, {*best});
    }
}

void DesktopLocationManager::askService()
{
    if (m_service || !m_delegate) {
        return;
    }
    m_service = new GeoClueClient(m_sources.systemBus(), this);
    connect(m_service, &GeoClueClient::granted, this,
            [this] { m_delegate->didChangeAuthorizationStatus(*this, LocationAuthorizationStatus::AuthorizedAlways); });
    connect(m_service, &GeoClueClient::refused, this,
            [this] { m_delegate->didChangeAuthorizationStatus(*this, LocationAuthorizationStatus::Denied); });
    connect(m_service, &GeoClueClient::failed, this,
            [this](const QString& error) { m_delegate->didFailWithError(*this, error); });
    connect(m_service, &GeoClueClient::located, this, [this](Coordinate place) {
        m_serviceCoordinate = place;
        tellBestLocation();
    });
    m_service->ask(
        {.desktopId = m_sources.desktopId, .accuracy = m_desiredAccuracy, .distanceFilter = m_distanceFilter});
}
