// SPDX-License-Identifier: MIT
#pragma once

#include "host/LocationManager.h"

#include <QDBusConnection>
#include <QObject>

#include <filesystem>
#include <functional>
#include <optional>

class GeoClueClient;

/// Takes the position from, in order of preference: the location service, the user's entry, the principal city of the
/// process's time zone. The latter two are reported at once. The service is asked once a run, and its answer replaces
/// them whenever it comes.
class DesktopLocationManager : public QObject, public LocationManager {
    Q_OBJECT

public:
    struct Sources {
        std::function<QDBusConnection()> systemBus;                   ///< called when the service is first asked
        QString desktopId;                                            ///< the name of the program's desktop file
        std::function<std::optional<Coordinate>()> enteredCoordinate; ///< the place in the preferences at present
        std::filesystem::path zoneDatabase;                           ///< the folder of tzdata
    };

    explicit DesktopLocationManager(Sources sources);
    ~DesktopLocationManager() override;

    void setDistanceFilter(double metres) override { m_distanceFilter = metres; }
    void setDesiredAccuracy(double metres) override { m_desiredAccuracy = metres; }
    void setDelegate(LocationManagerDelegate& delegate) override { m_delegate = &delegate; }

    // The desktop itself asks the user once the service is asked for a position.
    void requestAlwaysAuthorization() override {}
    void requestWhenInUseAuthorization() override {}

    // A single answer of the service is enough: `requestLocation` brings it and ends the updates.
    void startUpdatingLocation() override {}
    void stopUpdatingLocation() override {}

    void requestLocation() override;

private:
    std::optional<Location> bestLocation() const;
    void tellBestLocation();
    void askService();

    Sources m_sources;
    LocationManagerDelegate* m_delegate = nullptr;
    double m_distanceFilter = distanceFilterNone;
    double m_desiredAccuracy = 0;
    GeoClueClient* m_service = nullptr; ///< a child, made when the service is first asked
    std::optional<Coordinate> m_serviceCoordinate;
};
