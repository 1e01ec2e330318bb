// SPDX-License-Identifier: MIT
// The place that the user enters in the preferences, as the desktop's location manager takes it up.
#include "app/EnteredPlace.h"
#include "app/PreferenceKeys.h"
#include "host/linux/SettingsUserDefaults.h"
#include "look/NamedColor.h"
#include "support/AppFixture.h"
#include "support/Screenshot.h"
#include "support/TranslationGuard.h"

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QSettings>
#include <QTest>

#include <functional>
#include <limits>

namespace {

const QString latitudeKey = QStringLiteral("Latitude for sunrise and sunset");
const QString longitudeKey = QStringLiteral("Longitude for sunrise and sunset");
const QString positionAsked = QStringLiteral("requestLocation");
const QString latitudeProblem = QStringLiteral("The latitude is a number from −90 to 90");
const QString longitudeProblem = QStringLiteral("The longitude is a number from −180 to 180");
const QString halfProblem = QStringLiteral("Enter both, or leave both empty");

class PlacePreferenceTest : public AppFixture {
protected:
    using Numbers = QHash<QString, double>;

    template <class Widget> Widget& control(const char* name)
    {
        return *window->findChild<Widget*>(QString::fromLatin1(name));
    }
    QLineEdit& latitude() { return control<QLineEdit>("latitudeField"); }
    QLineEdit& longitude() { return control<QLineEdit>("longitudeField"); }

    void openSheet()
    {
        ui->preferencesAction->trigger();
        runQueued();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&control<QDialog>("thePrefsSheet"))); // or no field has the focus
    }

    void startWithSheet()
    {
        start();
        openSheet();
        host.journal.entries.clear();
    }

    /// Types in place of what stands in the field, and stays in it.
    static void type(QLineEdit& field, const QString& text)
    {
        field.setFocus();
        field.selectAll();
        QTest::keyClick(&field, Qt::Key_Delete);
        QTest::keyClicks(&field, text);
    }
    void leaveFields() { control<QPushButton>("closeBtn").setFocus(); }
    void enter(const QString& latitudeText, const QString& longitudeText)
    {
        type(latitude(), latitudeText);
        type(longitude(), longitudeText);
        leaveFields();
    }
    void closeSheet() { control<QPushButton>("closeBtn").click(); }

    Numbers stored() const { return host.userDefaults.storedNumbers; }

    /// What is said to be wrong; empty when the hint shows.
    QString problem()
    {
        const QLabel& label = control<QLabel>("placeProblem");
        EXPECT_NE(label.isVisible(), control<QLabel>("placeHint").isVisible());
        return label.isVisible() ? label.text() : QString();
    }
};

TEST_F(PlacePreferenceTest, AFreshAccountHasNoneAndTheFieldsSayAutomatic)
{
    startWithSheet();
    EXPECT_EQ(latitude().text(), QString());
    EXPECT_EQ(longitude().text(), QString());
    EXPECT_EQ(latitude().placeholderText(), QStringLiteral("automatic"));
    EXPECT_EQ(problem(), QString());
    EXPECT_TRUE(stored().isEmpty());
    EXPECT_EQ(enteredPlace(host.userDefaults), std::nullopt);
}

TEST_F(PlacePreferenceTest, APairIsStoredFlushedAndAskedForOnceItIsWhole)
{
    startWithSheet();
    type(latitude(), QStringLiteral("53.55"));
    longitude().setFocus();
    EXPECT_EQ(problem(), QString()) << "the other half may come yet";
    type(longitude(), QStringLiteral("9.99"));
    EXPECT_TRUE(stored().isEmpty());
    EXPECT_FALSE(host.journal.entries.contains(positionAsked));
    leaveFields();
    EXPECT_EQ(problem(), QString());
    EXPECT_EQ(stored(), (Numbers{{latitudeKey, 53.55}, {longitudeKey, 9.99}}));
    EXPECT_EQ(enteredPlace(host.userDefaults), (Coordinate{53.55, 9.99}));
    EXPECT_EQ(host.userDefaults.synchronizations, 1);
    EXPECT_EQ(host.journal.entries.count(positionAsked), 1);
    closeSheet();
    EXPECT_EQ(host.userDefaults.synchronizations, 1) << "nothing new to store";
    EXPECT_EQ(host.journal.entries.count(positionAsked), 1);
}

TEST_F(PlacePreferenceTest, ARefusedPlaceLeavesTheFormerOneAndNotItsFirstDigits)
{
    host.userDefaults.storedNumbers = {{latitudeKey, 53.55}, {longitudeKey, 9.99}};
    startWithSheet();
    type(latitude(), QStringLiteral("91"));
    EXPECT_EQ(problem(), QString()) << "not while it is typed";
    longitude().setFocus();
    EXPECT_EQ(problem(), latitudeProblem);
    closeSheet();
    EXPECT_EQ(stored(), (Numbers{{latitudeKey, 53.55}, {longitudeKey, 9.99}}));
    EXPECT_FALSE(host.journal.entries.contains(positionAsked));
}

TEST_F(PlacePreferenceTest, WhatIsTypedIsTakenInWhicheverWayItEnds)
{
    const std::function<void()> ends[] = {
        [this] { leaveFields(); },
        [this] { QTest::keyClick(&latitude(), Qt::Key_Return); },
        [this] { QTest::keyClick(&latitude(), Qt::Key_Escape); },
        [this] { closeSheet(); },
        [this] { QTest::mouseClick(&control<QPushButton>("closeBtn"), Qt::LeftButton); },
        [this] { app->applicationWillTerminate(); },
    };
    for (const auto& end : ends) {
        host.userDefaults.storedNumbers = {{latitudeKey, 1}, {longitudeKey, 9}};
        startWithSheet();
        type(latitude(), QStringLiteral("-53,5"));
        EXPECT_EQ(stored().value(latitudeKey), 1);
        end();
        EXPECT_EQ(stored(), (Numbers{{latitudeKey, -53.5}, {longitudeKey, 9}}));
        EXPECT_EQ(host.journal.entries.count(positionAsked), 1);
    }
}

TEST_F(PlacePreferenceTest, WhatIsWrongIsSaidUntilItIsMended)
{
    startWithSheet();
    enter(QStringLiteral("91"), QStringLiteral("9"));
    EXPECT_EQ(problem(), latitudeProblem);
    type(longitude(), QStringLiteral("10"));
    EXPECT_EQ(problem(), latitudeProblem);
    type(latitude(), QStringLiteral("5"));
    EXPECT_EQ(problem(), QString());
    leaveFields();
    EXPECT_EQ(stored(), (Numbers{{latitudeKey, 5}, {longitudeKey, 10}}));
}

TEST_F(PlacePreferenceTest, WhatIsNoPlaceIsSaidAndTheFormerOneStays)
{
    host.userDefaults.storedNumbers = {{latitudeKey, 1}, {longitudeKey, 2}};
    struct {
        const char* latitude;
        const char* longitude;
        QString problem;
    } const rows[] = {
        {"90.1", "2", latitudeProblem},   {"-91", "2", latitudeProblem},    {"north", "2", latitudeProblem},
        {"-", "2", latitudeProblem},      {"1", "180.5", longitudeProblem}, {"1", "-181", longitudeProblem},
        {"1", "2.3.4", longitudeProblem}, {"1e1", "2", latitudeProblem},    {"", "2", halfProblem},
        {"1", " ", halfProblem},          {"", "x", longitudeProblem},
    };
    for (const auto& row : rows) {
        startWithSheet();
        enter(QString::fromLatin1(row.latitude), QString::fromLatin1(row.longitude));
        EXPECT_EQ(problem(), row.problem) << row.latitude << " / " << row.longitude;
        EXPECT_EQ(latitude().accessibleDescription(), row.problem);
        EXPECT_EQ(stored(), (Numbers{{latitudeKey, 1}, {longitudeKey, 2}})) << row.latitude << " / " << row.longitude;
        EXPECT_FALSE(host.journal.entries.contains(positionAsked)) << row.latitude << " / " << row.longitude;
    }
}

TEST_F(PlacePreferenceTest, BothEmptyIsAutomaticAgain)
{
    host.userDefaults.storedNumbers = {{latitudeKey, 53.55}, {longitudeKey, 9.99}};
    startWithSheet();
    type(latitude(), {});
    EXPECT_EQ(stored().size(), 2);
    type(longitude(), {});
    leaveFields();
    EXPECT_TRUE(stored().isEmpty());
    EXPECT_EQ(problem(), QString());
    EXPECT_EQ(host.userDefaults.synchronizations, 1);
    EXPECT_EQ(host.journal.entries.count(positionAsked), 1);
}

TEST_F(PlacePreferenceTest, TheLineOfTheFormerPlaceGoesWhenNoPlaceIsKnownAnyMore)
{
    host.userDefaults.storedNumbers = {{latitudeKey, 53.55}, {longitudeKey, 9.99}};
    startWithSheet();
    FakeLocationManager& manager = *host.locationServices.manager;
    manager.delegate->didUpdateLocations(manager, {{{53.55, 9.99}, Location::Source::Preferences}});
    EXPECT_FALSE(ui->riseSetOnMiniCal->text().isEmpty());
    enter({}, {});
    EXPECT_EQ(ui->riseSetOnMiniCal->text(), QString());
    EXPECT_EQ(ui->riseSetOnMiniCal->toolTip(), QString());
    EXPECT_EQ(control<QLabel>("placeInUse").text(), QStringLiteral("No place is known"));
}

TEST_F(PlacePreferenceTest, TheSheetShowsWhatIsStoredEachTimeItOpens)
{
    host.userDefaults.storedNumbers = {{latitudeKey, -33.8688}, {longitudeKey, 151}};
    startWithSheet();
    EXPECT_EQ(latitude().text(), QStringLiteral("-33.8688"));
    EXPECT_EQ(longitude().text(), QStringLiteral("151"));
    latitude().setText(QStringLiteral("nonsense"));
    control<QDialog>("thePrefsSheet").done(0);
    openSheet();
    EXPECT_EQ(latitude().text(), QStringLiteral("-33.8688"));
    EXPECT_EQ(problem(), QString());
    EXPECT_FALSE(host.journal.entries.contains(positionAsked));
    EXPECT_EQ(host.userDefaults.synchronizations, 0);
}

TEST_F(PlacePreferenceTest, NumbersAreWrittenAsInTheUsersCountry)
{
    const LocaleGuard german("de_DE", {"de-DE"});
    const TranslationGuard texts({"de-DE"});
    host.userDefaults.storedNumbers = {{latitudeKey, 53.55}, {longitudeKey, 9.99}};
    startWithSheet();
    EXPECT_EQ(latitude().text(), QStringLiteral("53,55"));
    type(latitude(), QStringLiteral("52,5"));
    leaveFields();
    EXPECT_EQ(stored().value(latitudeKey), 52.5);
    type(latitude(), QStringLiteral("95"));
    leaveFields();
    EXPECT_EQ(problem(), QStringLiteral("Der Breitengrad ist eine Zahl von −90 bis 90"));
}

TEST_F(PlacePreferenceTest, StoredValuesThatAreNoPlaceCountAsNone)
{
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    const Numbers rows[] = {{{latitudeKey, 1}},
                            {{longitudeKey, 1}},
                            {{latitudeKey, 90.5}, {longitudeKey, 1}},
                            {{latitudeKey, 1}, {longitudeKey, -180.5}},
                            {{latitudeKey, nan}, {longitudeKey, 1}}};
    for (const Numbers& row : rows) {
        host.userDefaults.storedNumbers = row;
        EXPECT_EQ(enteredPlace(host.userDefaults), std::nullopt) << ::testing::PrintToString(row.values());
    }
}

TEST_F(PlacePreferenceTest, WithLocationServicesTurnedOffItIsStoredAllTheSame)
{
    host.locationServices.enabled = false;
    startWithSheet();
    enter(QStringLiteral("53.55"), QStringLiteral("9.99"));
    EXPECT_EQ(stored().size(), 2);
    EXPECT_FALSE(host.journal.entries.contains(positionAsked));
}

TEST_F(PlacePreferenceTest, AProblemIsRedInBothAppearancesAndMovesNothing)
{
    for (const Appearance appearance : {Appearance::Light, Appearance::Dark}) {
        const AppearanceGuard colors(appearance);
        startWithSheet();
        auto& sheet = control<QDialog>("thePrefsSheet");
        const bool dark = appearance == Appearance::Dark;
        FakeLocationManager& manager = *host.locationServices.manager;
        manager.delegate->didUpdateLocations(manager, {{{52.5, 13.3667}, Location::Source::ZoneCity}});
        runQueued();
        const QRect closeButton = control<QPushButton>("closeBtn").geometry();
        const auto save = [&](const char* state) {
            saveScreenshot(grabbed(*window, 2), QString::fromLatin1(state) + QLatin1String(dark ? "-dark" : "-light"));
            saveScreenshot(grabbed(sheet, 2),
                           QString::fromLatin1(state) + QLatin1String(dark ? "-sheet-dark" : "-sheet-light"));
        };
        save("hint");
        enter(QStringLiteral("95"), {});
        runQueued();
        save("problem");
        EXPECT_EQ(control<QLabel>("placeProblem").palette().color(QPalette::WindowText),
                  namedColor(u"SystemRedColor", calmPalette(appearance)));
        EXPECT_EQ(control<QPushButton>("closeBtn").geometry(), closeButton);
    }
}

// --- The settings file -----------------------------------------------------------------------------------------------

class PlaceSettingsTest : public ::testing::Test {
protected:
    PlaceSettingsTest()
    {
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, home.path());
        QCoreApplication::setOrganizationName(QStringLiteral("velumora"));
        QCoreApplication::setApplicationName(QStringLiteral("velumora"));
    }
    ~PlaceSettingsTest() override
    {
        QCoreApplication::setOrganizationName({});
        QCoreApplication::setApplicationName({});
    }

    QTemporaryDir home;
};

TEST_F(PlaceSettingsTest, APlaceIsThereAfterARestartAndGoneOnceItIsTakenBack)
{
    const Coordinate place{-33.868820, 151.209296};
    {
        SettingsUserDefaults defaults;
        setEnteredPlace(place, defaults);
    }
    {
        SettingsUserDefaults defaults;
        EXPECT_EQ(enteredPlace(defaults), place);
        EXPECT_EQ(QSettings().allKeys(), (QStringList{latitudeKey, longitudeKey}));
        setEnteredPlace(std::nullopt, defaults);
    }
    EXPECT_EQ(enteredPlace(SettingsUserDefaults()), std::nullopt);
    EXPECT_TRUE(QSettings().allKeys().isEmpty());
}

TEST_F(PlaceSettingsTest, WhatIsNoFiniteNumberCountsAsNotThere)
{
    SettingsUserDefaults defaults;
    EXPECT_EQ(defaults.numberForKey(latitudeKey), std::nullopt);
    for (const char* text : {"north", "", "inf", "nan", "1,5"}) {
        QSettings().setValue(latitudeKey, QString::fromLatin1(text));
        EXPECT_EQ(defaults.numberForKey(latitudeKey), std::nullopt) << text;
    }
    QSettings().setValue(latitudeKey, QStringLiteral("1.5"));
    EXPECT_EQ(defaults.numberForKey(latitudeKey), 1.5);
}

} // namespace
