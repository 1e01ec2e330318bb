// SPDX-License-Identifier: MIT
#pragma once

#include "host/LocationManager.h"

#include <QDBusConnection>
#include <QObject>

#include <filesystem>
#include <functional>
#include <optional>

class GeoClueClient;

/// Where a position comes from on this desktop, the best first: the location service, what the user entered, the
/// principal city of the process's time zone. The two latter are told at once; the service is asked once a run, and
/// what it tells replaces them whenever it comes.
class DesktopLocationManager : public QObject, public LocationManager {
    Q_OBJECT

public:
    struct Sources {
        std::function<QDBusConnection()> systemBus;                   ///< called when the service is first asked
        QString desktopId;                                            ///< the name of the program's desktop file
        std::function<std::optional<Coordinate>()> enteredCoordinate; ///< what the preferences say now
        std::filesystem::path zoneDatabase;                           ///< the folder of tzdata
    };

    explicit DesktopLocationManager(Sources sources);
    ~DesktopLocationManager() override;

    void setDistanceFilter(double metres) override { m_distanceFilter = metres; }
    void setDesiredAccuracy(double metres) override { m_desiredAccuracy = metres; }
    void setDelegate(LocationManagerDelegate& delegate) override { m_delegate = &delegate; }

    // The desktop itself asks the user, when the service is asked for a position.
    void requestAlwaysAuthorization() override {}
    void requestWhenInUseAuthorization() override {}

    // The service's one answer is all that is wanted: it comes by `requestLocation`, and ends what was started.
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
    GeoClueClient* m_service = nullptr; ///< ours, made when it is first asked
    std::optional<Coordinate> m_serviceCoordinate;
};
