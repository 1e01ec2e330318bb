// SPDX-License-Identifier: MIT
// The desktop's location manager against a stand-in for GeoClue on a bus of the test's own.
#include "host/bus/DesktopLocationServices.h"
#include "host/bus/GeoClueClient.h"
#include "support/DateGuards.h"
#include "support/PrivateBus.h"
#include "support/StandInGeoClue.h"

#include <QDBusPendingCallWatcher>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

#include <limits>

static void PrintTo(const Location& location, std::ostream* stream)
{
    *stream << location.coordinate.latitude << ", " << location.coordinate.longitude << " from source "
            << static_cast<int>(location.source);
}

namespace {

using Source = Location::Source;

// Berlin by zone1970.tab: +5230+01322.
const Location berlin{{52.5, 13 + 22 / 60.0}, Source::ZoneCity};
const Location hamburg{{53.55, 9.99}, Source::LocationService};
const QString accessDenied = QStringLiteral("org.freedesktop.DBus.Error.AccessDenied");

QVariantMap properties(const QVariant& latitude, const QVariant& longitude)
{
    return {{QStringLiteral("Latitude"), latitude},
            {QStringLiteral("Longitude"), longitude},
            {QStringLiteral("Accuracy"), 3000.0}};
}

/// Remembers what it is told.
class FakeLocationManagerDelegate : public LocationManagerDelegate {
public:
    QList<Location> locations;
    QList<LocationAuthorizationStatus> statuses;
    QStringList errors;

    void didUpdateLocations(LocationManager&, const QList<Location>& told) override { locations += told; }
    void didChangeAuthorizationStatus(LocationManager&, LocationAuthorizationStatus status) override
    {
        statuses += status;
    }
    void didFailWithError(LocationManager&, const QString& error) override { errors += error; }
    void didUpdateToLocation(LocationManager&, const Location&, const Location&) override { FAIL(); }
};

class DesktopLocationTest : public ::testing::Test {
protected:
    StandInGeoClue& startService(const QStringList& unanswered = {})
    {
        m_service = std::make_unique<StandInGeoClue>(bus.connection(QStringLiteral("service")));
        m_service->unanswered = unanswered;
        return *m_service;
    }

    LocationManager& makeManager()
    {
        DesktopLocationServices services({.systemBus = [this] { return bus.connection(QStringLiteral("program")); },
                                          .desktopId = QStringLiteral("velumora"),
                                          .enteredCoordinate = [this] { return entered; },
                                          .zoneDatabase = "/usr/share/zoneinfo"});
        EXPECT_TRUE(services.locationServicesEnabled());
        EXPECT_EQ(services.authorizationStatus(), LocationAuthorizationStatus::NotDetermined);
        manager = services.makeLocationManager();
        manager->setDistanceFilter(distanceFilterNone);
        manager->setDesiredAccuracy(locationAccuracyThreeKilometers);
        manager->setDelegate(listener);
        return *manager;
    }

    static void waitFor(const std::function<bool()>& condition)
    {
        ASSERT_TRUE(QTest::qWaitFor(condition, PrivateBus::patience));
    }

    void waitForCall(const QString& call)
    {
        waitFor([&] { return m_service->calls.contains(call); });
    }

    /// Returns when all that was sent by now has arrived, both ways, and what follows from it as well.
    void settle()
    {
        for (int round = 0; round < 3; ++round) {
            for (const char* from : {"program", "service"}) {
                QDBusConnection sender = bus.connection(QString::fromLatin1(from));
                QDBusConnection receiver =
                    bus.connection(QString::fromLatin1(from) == QLatin1String("program") ? QStringLiteral("service")
                                                                                         : QStringLiteral("program"));
                const QDBusMessage ping =
                    QDBusMessage::createMethodCall(receiver.baseService(), QStringLiteral("/"),
                                                   QStringLiteral("org.freedesktop.DBus.Peer"), QStringLiteral("Ping"));
                QDBusPendingCallWatcher pong(sender.asyncCall(ping));
                waitFor([&] { return pong.isFinished(); });
                QCoreApplication::processEvents();
            }
        }
    }

    const TimeZoneGuard zone{"Europe/Berlin"};
    PrivateBus bus;
    std::optional<Coordinate> entered;
    FakeLocationManagerDelegate listener;
    std::unique_ptr<LocationManager> manager;

private:
    std::unique_ptr<StandInGeoClue> m_service;
};

TEST_F(DesktopLocationTest, NothingIsToldWhileTheRequestIsMade)
{
    makeManager().requestLocation();
    EXPECT_TRUE(listener.locations.isEmpty());
}

TEST_F(DesktopLocationTest, TheCityOfTheZoneIsToldAtOnceAndTheServicesPlaceWhenItComes)
{
    StandInGeoClue& service = startService();
    makeManager().requestLocation();
    QCoreApplication::processEvents();
    EXPECT_EQ(listener.locations, QList<Location>{berlin});
    waitForCall(QStringLiteral("Start"));
    service.tell(properties(53.55, 9.99));
    waitFor([&] { return listener.locations.size() > 1; });
    EXPECT_EQ(listener.locations, (QList<Location>{berlin, hamburg}));
    EXPECT_EQ(listener.statuses, QList<LocationAuthorizationStatus>{LocationAuthorizationStatus::AuthorizedAlways});
    EXPECT_TRUE(listener.errors.isEmpty());
}

TEST_F(DesktopLocationTest, TheServiceIsAskedOnceForACoarsePlaceAndThenLeft)
{
    StandInGeoClue& service = startService();
    makeManager();
    manager->requestAlwaysAuthorization();
    manager->requestWhenInUseAuthorization();
    manager->startUpdatingLocation();
    manager->requestLocation();
    waitForCall(QStringLiteral("Start"));
    service.tell(properties(53.55, 9.99));
    waitFor([&] { return listener.locations.size() > 1; });
    manager->stopUpdatingLocation();
    manager->requestLocation();
    settle();
    EXPECT_EQ(service.calls,
              (QStringList{QStringLiteral("GetClient"), QStringLiteral("Set DesktopId velumora"),
                           QStringLiteral("Set DistanceThreshold 0"), QStringLiteral("Set RequestedAccuracyLevel 5"),
                           QStringLiteral("Start"), QStringLiteral("GetAll"), QStringLiteral("Stop"),
                           QStringLiteral("DeleteClient /org/freedesktop/GeoClue2/Client/7")}));
    EXPECT_EQ(listener.locations, (QList<Location>{berlin, hamburg, hamburg}));
}

TEST_F(DesktopLocationTest, ARefusalLeavesWhatWasToldAtOnce)
{
    StandInGeoClue& service = startService({QStringLiteral("Start")});
    makeManager().requestLocation();
    waitForCall(QStringLiteral("Start"));
    service.refuse(QStringLiteral("Start"), accessDenied);
    waitFor([&] { return !listener.statuses.isEmpty(); });
    EXPECT_EQ(listener.statuses, QList<LocationAuthorizationStatus>{LocationAuthorizationStatus::Denied});
    EXPECT_EQ(listener.locations, QList<Location>{berlin});
    EXPECT_TRUE(listener.errors.isEmpty());
}

TEST_F(DesktopLocationTest, AnotherErrorOfTheServiceIsToldAsSuch)
{
    StandInGeoClue& service = startService({QStringLiteral("Start")});
    makeManager().requestLocation();
    waitForCall(QStringLiteral("Start"));
    service.refuse(QStringLiteral("Start"), QStringLiteral("org.freedesktop.DBus.Error.Failed"));
    waitFor([&] { return !listener.errors.isEmpty(); });
    EXPECT_EQ(listener.errors, QStringList{QStringLiteral("not now")});
    EXPECT_TRUE(listener.statuses.isEmpty());
}

TEST_F(DesktopLocationTest, AnAnswerThatComesLateCounts)
{
    StandInGeoClue& service = startService({QStringLiteral("GetClient"), QStringLiteral("Start")});
    makeManager().requestLocation();
    waitForCall(QStringLiteral("GetClient"));
    manager->stopUpdatingLocation(); // as the delegate does for the city
    settle();
    EXPECT_EQ(listener.locations, QList<Location>{berlin});
    service.answer(QStringLiteral("GetClient"));
    waitForCall(QStringLiteral("Start"));
    settle();
    service.answer(QStringLiteral("Start"));
    settle();
    EXPECT_EQ(listener.locations, QList<Location>{berlin});
    service.tell(properties(53.55, 9.99));
    waitFor([&] { return listener.locations.size() > 1; });
    EXPECT_EQ(listener.locations.last(), hamburg);
}

TEST_F(DesktopLocationTest, AnAnswerAfterARefusalCounts)
{
    StandInGeoClue& service = startService({QStringLiteral("Start")});
    makeManager().requestLocation();
    waitForCall(QStringLiteral("Start"));
    service.refuse(QStringLiteral("Start"), accessDenied);
    waitFor([&] { return !listener.statuses.isEmpty(); });
    service.tell(properties(53.55, 9.99));
    waitFor([&] { return listener.locations.size() > 1; });
    EXPECT_EQ(listener.locations.last(), hamburg);
}

TEST_F(DesktopLocationTest, ASecondAnswerDoesNotCount)
{
    StandInGeoClue& service = startService();
    makeManager().requestLocation();
    waitForCall(QStringLiteral("Start"));
    service.tell(properties(53.55, 9.99));
    service.tell(properties(-33.87, 151.21)); // before the first was read
    waitFor([&] { return listener.locations.size() > 1; });
    service.tell(properties(35.68, 139.69)); // and after
    settle();
    EXPECT_EQ(listener.locations, (QList<Location>{berlin, hamburg}));
    EXPECT_EQ(service.calls.count(QStringLiteral("Stop")), 1);
}

TEST_F(DesktopLocationTest, AServiceThatNeverAnswersHoldsNothingUp)
{
    StandInGeoClue& service = startService({QStringLiteral("GetClient")});
    makeManager().requestLocation();
    waitForCall(QStringLiteral("GetClient"));
    settle();
    EXPECT_EQ(listener.locations, QList<Location>{berlin});
    EXPECT_TRUE(listener.errors.isEmpty());
    manager.reset(); // the program ends
    service.answer(QStringLiteral("GetClient"));
    settle();
    EXPECT_EQ(service.calls, QStringList{QStringLiteral("GetClient")});
}

TEST_F(DesktopLocationTest, ADesktopWithoutTheServiceIsToldAsAnError)
{
    makeManager().requestLocation();
    waitFor([&] { return !listener.errors.isEmpty(); });
    EXPECT_EQ(listener.locations, QList<Location>{berlin});
    EXPECT_TRUE(listener.statuses.isEmpty());
}

TEST_F(DesktopLocationTest, WithoutASystemBusTheCityIsToldAllTheSame)
{
    DesktopLocationManager withoutBus({.systemBus =
                                           [] {
                                               return QDBusConnection::connectToBus(
                                                   QStringLiteral("unix:path=/nonexistent"), QStringLiteral("nowhere"));
                                           },
                                       .desktopId = {},
                                       .enteredCoordinate = [] { return std::optional<Coordinate>(); },
                                       .zoneDatabase = "/usr/share/zoneinfo"});
    withoutBus.setDelegate(listener);
    withoutBus.requestLocation();
    waitFor([&] { return !listener.errors.isEmpty(); });
    EXPECT_EQ(listener.locations, QList<Location>{berlin});
    QDBusConnection::disconnectFromBus(QStringLiteral("nowhere"));
}

TEST_F(DesktopLocationTest, WhatTheUserEnteredGoesBeforeTheCityAndBehindTheService)
{
    entered = Coordinate{40.71, -74.01};
    const Location newYork{*entered, Source::Preferences};
    StandInGeoClue& service = startService();
    makeManager().requestLocation();
    waitForCall(QStringLiteral("Start"));
    EXPECT_EQ(listener.locations, QList<Location>{newYork});
    service.tell(properties(53.55, 9.99));
    waitFor([&] { return listener.locations.size() > 1; });
    EXPECT_EQ(listener.locations.last(), hamburg);
}

TEST_F(DesktopLocationTest, AskedAgainItTellsWhatIsEnteredNow)
{
    makeManager().requestLocation();
    QCoreApplication::processEvents();
    entered = Coordinate{40.71, -74.01};
    manager->requestLocation();
    QCoreApplication::processEvents();
    entered.reset();
    manager->requestLocation();
    QCoreApplication::processEvents();
    EXPECT_EQ(listener.locations, (QList<Location>{berlin, {Coordinate{40.71, -74.01}, Source::Preferences}, berlin}));
}

TEST_F(DesktopLocationTest, AskedAgainItTellsTheCityOfTheZoneThatIsInForceNow)
{
    makeManager().requestLocation();
    QCoreApplication::processEvents();
    const TimeZoneGuard sydney("Australia/Sydney"); // -3352+15113
    manager->requestLocation();
    QCoreApplication::processEvents();
    EXPECT_EQ(listener.locations.last(), (Location{{-(33 + 52 / 60.0), 151 + 13 / 60.0}, Source::ZoneCity}));
}

TEST_F(DesktopLocationTest, AZoneWithoutACityTellsNoPlace)
{
    const TimeZoneGuard utc("UTC");
    startService();
    makeManager().requestLocation();
    waitForCall(QStringLiteral("Start"));
    settle();
    EXPECT_TRUE(listener.locations.isEmpty());
}

TEST_F(DesktopLocationTest, AnAnswerThatIsNoPlaceIsToldAsAnErrorAndTheNextOneCounts)
{
    StandInGeoClue& service = startService();
    makeManager().requestLocation();
    waitForCall(QStringLiteral("Start"));
    service.tell(properties(91.0, 9.99));
    waitFor([&] { return !listener.errors.isEmpty(); });
    EXPECT_EQ(listener.locations, QList<Location>{berlin});
    service.tell(properties(53.55, 9.99));
    waitFor([&] { return listener.locations.size() > 1; });
    EXPECT_EQ(listener.locations.last(), hamburg);
}

TEST(PlaceFromProperties, IsAPairOfNumbersOnTheGlobe)
{
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    constexpr double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(placeFromProperties(properties(-90.0, 180.0)), (Coordinate{-90, 180}));
    EXPECT_EQ(placeFromProperties(properties(0.0, 0.0)), (Coordinate{0, 0}));
    const QVariantMap bad[] = {
        {},
        {{QStringLiteral("Latitude"), 1.0}},
        {{QStringLiteral("Longitude"), 1.0}},
        properties(90.1, 0.0),
        properties(0.0, -180.1),
        properties(nan, 0.0),
        properties(0.0, infinity),
        properties(QStringLiteral("north"), 0.0),
        properties(QVariantList{1.0}, 0.0),
    };
    for (const QVariantMap& each : bad) {
        EXPECT_EQ(placeFromProperties(each), std::nullopt) << ::testing::PrintToString(each.keys().size());
    }
}

} // namespace
