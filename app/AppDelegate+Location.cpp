// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"
#include "place/DegreesText.h"
#include "place/SunTimes.h"
#include "sheets/PreferencesSheet.h"
#include "text/Localized.h"
#include "ui_MainWindow.h"
#include "ui_PreferencesSheet.h"

#include <utility>

namespace {

/// What is used, and how it was found.
QString descriptionOf(const Location& location)
{
    const QStringList place{DegreesText::shortText(location.coordinate.latitude),
                            DegreesText::shortText(location.coordinate.longitude)};
    switch (location.source) {
    case Location::Source::LocationService:
        return filled(localized("Latitude %@°, longitude %@°\nfrom the desktop's location service"), place);
    case Location::Source::Preferences:
        return filled(localized("Latitude %@°, longitude %@°\nas entered in the preferences"), place);
    case Location::Source::ZoneCity:
        return filled(localized("Latitude %@°, longitude %@°\nmain city of your time zone"), place);
    }
    return {};
}

} // namespace

void AppDelegate::startLocationManager()
{
    LocationServices& services = m_host.locationServices;
    if (!services.locationServicesEnabled()) {
        return;
    }
    locationManager = services.makeLocationManager();
    locationManager->setDistanceFilter(distanceFilterNone);
    locationManager->setDesiredAccuracy(locationAccuracyThreeKilometers);
    locationManager->setDelegate(*this);
    locationManager->requestAlwaysAuthorization();
    didChangeAuthorizationStatus(*locationManager, services.authorizationStatus());
    locationManager->requestLocation();
    m_zoneOfLocation = DateEnvironment::nameOfZoneInForce();
}

void AppDelegate::didChangeAuthorizationStatus(LocationManager& manager, LocationAuthorizationStatus status)
{
    if (status == LocationAuthorizationStatus::NotDetermined) {
        manager.requestWhenInUseAuthorization();
    } else if (status == LocationAuthorizationStatus::AuthorizedAlways) {
        manager.startUpdatingLocation();
    }
}

void AppDelegate::didUpdateLocations(LocationManager& manager, const QList<Location>& locations)
{
    const Location location = locations.isEmpty() ? Location() : locations.last();
    manager.stopUpdatingLocation();
    if (const auto line = SunTimes::sunLine(location.coordinate, localized("Rise/Set:"), m_formatters->time)) {
        m_ui.riseSetOnMiniCal->setText(*line);
        m_ui.riseSetOnMiniCal->setToolTip(descriptionOf(location));
        m_prefsSheet->outlets().placeInUse->setText(descriptionOf(location));
    }
}

/// For another place or another zone; the passing of time alone never asks again.
void AppDelegate::askForLocationAgain()
{
    m_zoneOfLocation = DateEnvironment::nameOfZoneInForce();
    if (locationManager) {
        m_ui.riseSetOnMiniCal->clear();
        m_ui.riseSetOnMiniCal->setToolTip(QString());
        m_prefsSheet->outlets().placeInUse->setText(localized("No place is known"));
        locationManager->requestLocation();
    }
}
