// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"
#include "host/LocationManager.h"

void AppDelegate::startLocationManager()
{
    m_host.locationManager.startUpdatingLocation();
}
