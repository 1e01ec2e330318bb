// SPDX-License-Identifier: MIT
#pragma once

#include "place/Coordinate.h"

#include <QList>
#include <QString>

#include <memory>

/// A place, and how it was found.
struct Location {
    enum class Source { LocationService, Preferences, ZoneCity };

    Coordinate coordinate;
    Source source = Source::LocationService;

    bool operator==(const Location&) const = default;
};

/// Whether the user allows the program to know the location.
enum class LocationAuthorizationStatus {
    NotDetermined = 0,
    Restricted = 1,
    Denied = 2,
    AuthorizedAlways = 3,
    AuthorizedWhenInUse = 4,
};

inline constexpr double distanceFilterNone = -1;                ///< every move counts
inline constexpr double locationAccuracyThreeKilometers = 3000; ///< metres

class LocationManager;

/// Receives the results of a location manager, on the thread that made the manager and never during a call to it.
class LocationManagerDelegate {
public:
    LocationManagerDelegate() = default;
    LocationManagerDelegate(const LocationManagerDelegate&) = delete;
    LocationManagerDelegate& operator=(const LocationManagerDelegate&) = delete;
    virtual ~LocationManagerDelegate() = default;

    /// `locations` in the order in which they were found, the newest last.
    virtual void didUpdateLocations(LocationManager& manager, const QList<Location>& locations) = 0;
    virtual void didChangeAuthorizationStatus(LocationManager& manager, LocationAuthorizationStatus status) = 0;
    virtual void didFailWithError(LocationManager& manager, const QString& error) = 0;
    virtual void didUpdateToLocation(LocationManager& manager, const Location& newLocation,
                                     const Location& oldLocation) = 0;
};

/// Finds the user's location and reports it to its delegate. Every call returns at once.
class LocationManager {
public:
    LocationManager() = default;
    LocationManager(const LocationManager&) = delete;
    LocationManager& operator=(const LocationManager&) = delete;
    virtual ~LocationManager() = default;

    /// How far the user must move for another update, in metres.
    virtual void setDistanceFilter(double metres) = 0;

    /// How accurate a position needs to be, in metres.
    virtual void setDesiredAccuracy(double metres) = 0;

    /// `delegate` must outlive the manager.
    virtual void setDelegate(LocationManagerDelegate& delegate) = 0;

    virtual void requestAlwaysAuthorization() = 0;
    virtual void requestWhenInUseAuthorization() = 0;

    virtual void startUpdatingLocation() = 0;
    virtual void stopUpdatingLocation() = 0;

    /// Reports the best position known at present, and once more when a better one becomes known, whether or not
    /// updates were stopped meanwhile. Each further call reports the best position again, since the user's own entries
    /// and the zone may have changed. Reports nothing while no position is known.
    virtual void requestLocation() = 0;
};

/// The desktop's location services.
class LocationServices {
public:
    LocationServices() = default;
    LocationServices(const LocationServices&) = delete;
    LocationServices& operator=(const LocationServices&) = delete;
    virtual ~LocationServices() = default;

    /// False when they are turned off for the whole machine.
    virtual bool locationServicesEnabled() const = 0;

    /// The program's permission, as far as known without asking.
    virtual LocationAuthorizationStatus authorizationStatus() const = 0;

    /// The manager must not outlive these services or its delegate.
    virtual std::unique_ptr<LocationManager> makeLocationManager() = 0;
};
