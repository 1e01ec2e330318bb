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

/// Whether the user lets the program know where it is.
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

/// Hears from a location manager, on the thread that made the manager and never during a call to it.
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

/// Finds out where the user is and tells its delegate. Every call returns at once.
class LocationManager {
public:
    LocationManager() = default;
    LocationManager(const LocationManager&) = delete;
    LocationManager& operator=(const LocationManager&) = delete;
    virtual ~LocationManager() = default;

    /// How far the user must have moved for another update, in metres.
    virtual void setDistanceFilter(double metres) = 0;

    /// How exact a position need be, in metres.
    virtual void setDesiredAccuracy(double metres) = 0;

    /// `delegate` outlives the manager.
    virtual void setDelegate(LocationManagerDelegate& delegate) = 0;

    virtual void requestAlwaysAuthorization() = 0;
    virtual void requestWhenInUseAuthorization() = 0;

    virtual void startUpdatingLocation() = 0;
    virtual void stopUpdatingLocation() = 0;

    /// Tells the best position known at present, and once a better one that becomes known later, whether or not updates
    /// were stopped meanwhile. Asked for again, what is best now: the user's own entries and the zone may have changed.
    /// Where no position is known at all, nothing is told.
    virtual void requestLocation() = 0;
};

/// What the desktop knows of places.
class LocationServices {
public:
    LocationServices() = default;
    LocationServices(const LocationServices&) = delete;
    LocationServices& operator=(const LocationServices&) = delete;
    virtual ~LocationServices() = default;

    /// False when they are turned off for the whole machine.
    virtual bool locationServicesEnabled() const = 0;

    /// Where this program stands, as far as is known without asking.
    virtual LocationAuthorizationStatus authorizationStatus() const = 0;

    /// A manager that outlives neither these services nor its delegate.
    virtual std::unique_ptr<LocationManager> makeLocationManager() = 0;
};
