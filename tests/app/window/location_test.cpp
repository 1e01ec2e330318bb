// SPDX-License-Identifier: MIT
// The line of sunrise and sunset. The times expected here are those of tests/data/sun_times/sun_times.py.
#include "support/AppFixture.h"
#include "support/TranslationGuard.h"

#include <QLabel>

namespace {

using Source = Location::Source;

const Coordinate hamburg{53.55, 9.99};
const QString hamburgLine = QStringLiteral("Rise/Set: 6:36 AM/6:23 PM");

class LocationTest : public AppFixture {
protected:
    /// The line under the calendar, with every kind of blank as a plain one.
    QString line() const { return ui->riseSetOnMiniCal->text().simplified().replace(QChar(0x202f), u' '); }

    /// What was asked of the location services.
    QStringList calls() const
    {
        static const QStringList all{
            QStringLiteral("locationServicesEnabled"), QStringLiteral("makeLocationManager"),
            QStringLiteral("setDistanceFilter -1"),    QStringLiteral("setDesiredAccuracy 3000"),
            QStringLiteral("setDelegate of location"), QStringLiteral("requestAlwaysAuthorization"),
            QStringLiteral("authorizationStatus"),     QStringLiteral("requestWhenInUseAuthorization"),
            QStringLiteral("startUpdatingLocation"),   QStringLiteral("stopUpdatingLocation"),
            QStringLiteral("requestLocation")};
        QStringList found = host.journal.entries;
        found.removeIf([](const QString& entry) { return !all.contains(entry); });
        return found;
    }

    LocationManager& manager() { return *host.locationServices.manager; }

    /// What the location manager tells.
    void tell(const QList<Location>& locations)
    {
        host.locationServices.manager->delegate->didUpdateLocations(manager(), locations);
    }

    void startAnd(const QList<Location>& locations)
    {
        start();
        tell(locations);
    }
};

// --- The start -------------------------------------------------------------------------------------------------------

TEST_F(LocationTest, TurnedOffForTheMachineNothingIsAskedAndTheLineStaysAsLaidOut)
{
    host.locationServices.enabled = false;
    start();
    EXPECT_EQ(calls(), QStringList{QStringLiteral("locationServicesEnabled")});
    EXPECT_EQ(host.locationServices.manager, nullptr);
    EXPECT_EQ(app->locationManager, nullptr);
    EXPECT_EQ(line(), QString());
    host.clockMonitor.jump();
    const TimeZoneGuard tokyo("Asia/Tokyo");
    host.clockMonitor.jump();
    EXPECT_EQ(calls(), QStringList{QStringLiteral("locationServicesEnabled")});
}

struct StatusCase {
    const char* name;
    LocationAuthorizationStatus status;
    const char* step; ///< what follows from the status; empty for nothing
};

class LocationStatus : public LocationTest, public ::testing::WithParamInterface<StatusCase> {
protected:
    static QStringList step()
    {
        const QString call = QString::fromLatin1(GetParam().step);
        return call.isEmpty() ? QStringList() : QStringList{call};
    }
};

TEST_P(LocationStatus, OfTheStartDecidesWhatIsAskedBeforeTheOnePosition)
{
    host.locationServices.status = GetParam().status;
    start();
    EXPECT_EQ(calls(),
              (QStringList{QStringLiteral("locationServicesEnabled"), QStringLiteral("makeLocationManager"),
                           QStringLiteral("setDistanceFilter -1"), QStringLiteral("setDesiredAccuracy 3000"),
                           QStringLiteral("setDelegate of location"), QStringLiteral("requestAlwaysAuthorization"),
                           QStringLiteral("authorizationStatus")} +
               step() + QStringList{QStringLiteral("requestLocation")}));
    EXPECT_EQ(app->locationManager.get(), host.locationServices.manager);
    EXPECT_EQ(host.locationServices.manager->delegate, app.get());
    EXPECT_EQ(line(), QString());
}

TEST_P(LocationStatus, ThatChangesIsAnsweredAlike)
{
    start();
    host.journal.entries.clear();
    host.locationServices.manager->delegate->didChangeAuthorizationStatus(manager(), GetParam().status);
    EXPECT_EQ(calls(), step());
    EXPECT_EQ(line(), QString());
}

INSTANTIATE_TEST_SUITE_P(
    All, LocationStatus,
    ::testing::Values(StatusCase{"notDetermined", LocationAuthorizationStatus::NotDetermined,
                                 "requestWhenInUseAuthorization"},
                      StatusCase{"restricted", LocationAuthorizationStatus::Restricted, ""},
                      StatusCase{"denied", LocationAuthorizationStatus::Denied, ""},
                      StatusCase{"always", LocationAuthorizationStatus::AuthorizedAlways, "startUpdatingLocation"},
                      StatusCase{"whenInUse", LocationAuthorizationStatus::AuthorizedWhenInUse, ""}),
    [](const auto& each) { return std::string(each.param.name); });

TEST(AuthorizationStatusNumbers, AreThoseOfTheServices)
{
    EXPECT_EQ(static_cast<int>(LocationAuthorizationStatus::NotDetermined), 0);
    EXPECT_EQ(static_cast<int>(LocationAuthorizationStatus::AuthorizedAlways), 3);
}

// --- Positions -------------------------------------------------------------------------------------------------------

TEST_F(LocationTest, APositionStopsTheUpdatesAndShowsTodaysTimesThere)
{
    start();
    host.journal.entries.clear();
    tell({{hamburg}});
    EXPECT_EQ(calls(), QStringList{QStringLiteral("stopUpdatingLocation")});
    EXPECT_EQ(line(), hamburgLine);
}

TEST_F(LocationTest, UpdatesAreStoppedBeforeTheLineChanges)
{
    start();
    bool seen = false;
    host.journal.onCall = [&](const QString& entry) {
        seen = entry == QLatin1String("stopUpdatingLocation");
        EXPECT_EQ(line(), QString());
    };
    tell({{hamburg}});
    host.journal.onCall = nullptr;
    EXPECT_TRUE(seen);
}

TEST_F(LocationTest, TimesAreThoseOfThePlaceOnTheClockOfTheZone)
{
    struct {
        Coordinate place;
        const char* line;
    } const rows[] = {
        {{64.15, -21.95}, "Rise/Set: 8:48 AM/8:28 PM"},   // Reykjavik
        {{-33.87, 151.21}, "Rise/Set: 8:54 PM/9:14 AM"},  // Sydney
        {{40.71, -74.01}, "Rise/Set: 12:08 PM/12:03 AM"}, // New York
        {{0, 0}, "Rise/Set: 7:06 AM/7:12 PM"},
    };
    start();
    for (const auto& row : rows) {
        tell({{row.place}});
        EXPECT_EQ(line(), QString::fromLatin1(row.line)) << row.place.latitude;
    }
}

TEST_F(LocationTest, OfSeveralPositionsTheLastCounts)
{
    startAnd({{{64.15, -21.95}}, {{-33.87, 151.21}}, {hamburg}});
    EXPECT_EQ(line(), hamburgLine);
}

TEST_F(LocationTest, AnEmptyListCountsAsLatitudeAndLongitudeZero)
{
    startAnd({});
    EXPECT_EQ(line(), QStringLiteral("Rise/Set: 7:06 AM/7:12 PM"));
}

TEST_F(LocationTest, WhereTheSunStaysUpBothTimesShowAsMidnight)
{
    clock.set(utcDate(2024, 6, 21, 8, 30));
    startAnd({{{78, 15.6}}});
    EXPECT_EQ(line(), QStringLiteral("Rise/Set: 12:00 AM/12:00 AM"));
}

TEST_F(LocationTest, APositionThatComesLaterReplacesTheLineForTheDayThatIsPresentThen)
{
    startAnd({{{64.15, -21.95}}});
    clock.set(utcDate(2024, 3, 16, 8, 30));
    tell({{hamburg}});
    EXPECT_EQ(line(), QStringLiteral("Rise/Set: 6:33 AM/6:25 PM"));
}

TEST_F(LocationTest, AnErrorAndAMoveDoNothing)
{
    startAnd({{hamburg}});
    host.journal.entries.clear();
    LocationManagerDelegate& delegate = *host.locationServices.manager->delegate;
    delegate.didFailWithError(manager(), QStringLiteral("no signal"));
    delegate.didUpdateToLocation(manager(), {{64.15, -21.95}}, {hamburg});
    EXPECT_EQ(line(), hamburgLine);
    EXPECT_TRUE(calls().isEmpty());
    EXPECT_EQ(alert(), nullptr);
}

TEST_F(LocationTest, InGermanTimesAreWrittenAsThere)
{
    const LocaleGuard german("de_DE", {"de-DE"});
    const TranslationGuard texts({"de-DE"});
    startAnd({{hamburg, Source::ZoneCity}});
    EXPECT_EQ(line(), QStringLiteral("Sonne auf/unter: 06:36/18:23"));
    EXPECT_EQ(ui->riseSetOnMiniCal->toolTip(), QStringLiteral("Breite 53,6°, Länge 10,0°\nHauptort Ihrer Zeitzone"));
}

TEST_F(LocationTest, TheToolTipTellsWhatIsUsedAndTheSheetToo)
{
    struct {
        Location location;
        const char* description;
    } const rows[] = {
        {{hamburg, Source::LocationService}, "Latitude 53.6°, longitude 10.0°\nfrom the desktop's location service"},
        {{{40.71, -74.01}, Source::Preferences}, "Latitude 40.7°, longitude -74.0°\nas entered in the preferences"},
        {{{52.5, 13.3667}, Source::ZoneCity}, "Latitude 52.5°, longitude 13.4°\nmain city of your time zone"},
    };
    start();
    EXPECT_EQ(ui->riseSetOnMiniCal->toolTip(), QString());
    for (const auto& row : rows) {
        tell({row.location});
        EXPECT_EQ(ui->riseSetOnMiniCal->toolTip(), QString::fromUtf8(row.description));
        EXPECT_EQ(window->findChild<QLabel*>(QStringLiteral("placeInUse"))->text(), QString::fromUtf8(row.description));
    }
}

// --- Time and zone go on ---------------------------------------------------------------------------------------------

TEST_F(LocationTest, ANewDayAsksForNothingAndLeavesTheLine)
{
    startAnd({{hamburg}});
    host.journal.entries.clear();
    clock.set(utcDate(2024, 6, 16, 8, 30));
    host.clockMonitor.jump(); // as after a sleep
    EXPECT_TRUE(calls().isEmpty());
    EXPECT_EQ(line(), hamburgLine);
}

TEST_F(LocationTest, ANewZoneAsksOnceAgainAndShowsItsTimes)
{
    startAnd({{hamburg}});
    host.journal.entries.clear();
    const TimeZoneGuard newYork("America/New_York");
    host.clockMonitor.jump();
    host.clockMonitor.jump();
    EXPECT_EQ(calls(), QStringList{QStringLiteral("requestLocation")});
    EXPECT_EQ(line(), QString()); // the times of the old zone are none of this one
    EXPECT_EQ(ui->riseSetOnMiniCal->toolTip(), QString());
    tell({{hamburg}});
    EXPECT_EQ(line(), QStringLiteral("Rise/Set: 1:36 AM/1:23 PM"));
}

// --- The look --------------------------------------------------------------------------------------------------------

TEST_F(LocationTest, TheLineIsCentredUnderTheTimeAndTakesNoRoomAnewWhenItComes)
{
    start();
    runQueued();
    const int height = ui->miniCalTime->parentWidget()->height();
    const int lineHeight = ui->riseSetOnMiniCal->height();
    EXPECT_GE(lineHeight, ui->riseSetOnMiniCal->fontMetrics().height());
    tell({{hamburg}});
    runQueued();
    EXPECT_EQ(ui->riseSetOnMiniCal->height(), lineHeight);
    EXPECT_EQ(ui->miniCalTime->parentWidget()->height(), height);
    EXPECT_GE(ui->riseSetOnMiniCal->y(), ui->miniCalTime->geometry().bottom());
    EXPECT_EQ(ui->riseSetOnMiniCal->geometry().center().x(), ui->miniCalTime->geometry().center().x());
    EXPECT_TRUE(ui->riseSetOnMiniCal->alignment().testFlag(Qt::AlignHCenter));
}

} // namespace
