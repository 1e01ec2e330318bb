// SPDX-License-Identifier: MIT
#include "host/linux/LinuxHost.h"

#include <QDialog>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QWidget>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

namespace {

using std::filesystem::path;
using std::filesystem::perms;

/// A new account, in which nothing is there but the folder of its login.
class LinuxHostTest : public ::testing::Test {
protected:
    LinuxHostTest()
    {
        std::filesystem::create_directory(home / "runtime");
        for (const auto& [name, folder] : std::map<const char*, const char*>{{"XDG_CACHE_HOME", "cache"},
                                                                             {"XDG_CONFIG_HOME", "config"},
                                                                             {"XDG_DATA_HOME", "data"},
                                                                             {"XDG_RUNTIME_DIR", "runtime"},
                                                                             {"XDG_STATE_HOME", "state"}}) {
            m_former[name] = qgetenv(name);
            qputenv(name, (home / folder).c_str());
        }
    }
    ~LinuxHostTest() override
    {
        for (const auto& [name, value] : m_former) {
            value.isNull() ? qunsetenv(name) : qputenv(name, value);
        }
    }

    std::vector<path> found() const
    {
        std::vector<path> names;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(home)) {
            names.push_back(std::filesystem::relative(entry, home));
        }
        return names;
    }

    HostedProgram program() const
    {
        return {.presentPanel = [](QDialog&, QWidget&) {},
                .enteredPlace = [](const UserDefaults&) { return std::nullopt; },
                .versionServer = QUrl(QStringLiteral("http://127.0.0.1:1"))};
    }

private:
    QTemporaryDir m_folder;
    std::map<const char*, QByteArray> m_former;

protected:
    const path home = m_folder.path().toStdString();
};

TEST_F(LinuxHostTest, MakesTheFoldersOfANewAccountWhenTheServicesAreAskedFor)
{
    LinuxHost host(program());
    EXPECT_THAT(found(), ::testing::ElementsAre("runtime"));

    const HostServices services = host.services();
    EXPECT_EQ(services.applicationSupport, home / "data");
    EXPECT_EQ(services.temporaryFolder, home / "runtime/velumora");
    EXPECT_EQ(services.stateFolder, home / "state/velumora");
    EXPECT_THAT(found(), ::testing::UnorderedElementsAre("cache", "data", "runtime", "runtime/velumora"));
    EXPECT_EQ(status(home / "data").permissions(), perms::owner_all);
}

TEST_F(LinuxHostTest, ThePanelIsPresentedByTheProgram)
{
    HostedProgram asked = program();
    QWidget window;
    const QWidget* shownOn = nullptr;
    asked.presentPanel = [&shownOn](QDialog&, QWidget& parent) { shownOn = &parent; };
    LinuxHost host(asked);
    host.services().openPanel.chooseFolder(window, {}, [](const auto&) {});
    EXPECT_EQ(shownOn, &window);
}

class HeardPlaces : public LocationManagerDelegate {
public:
    QList<Location> heard;

    void didUpdateLocations(LocationManager&, const QList<Location>& locations) override { heard += locations; }
    void didChangeAuthorizationStatus(LocationManager&, LocationAuthorizationStatus) override {}
    void didFailWithError(LocationManager&, const QString&) override {}
    void didUpdateToLocation(LocationManager&, const Location&, const Location&) override {}
};

TEST_F(LinuxHostTest, ThePlaceIsTheOneThatTheProgramFindsInTheUserDefaults)
{
    HostedProgram asked = program();
    const UserDefaults* askedOf = nullptr;
    asked.enteredPlace = [&askedOf](const UserDefaults& defaults) {
        askedOf = &defaults;
        return std::optional(Coordinate{.latitude = 12, .longitude = 34});
    };
    LinuxHost host(asked);
    const HostServices services = host.services();
    HeardPlaces places;
    const std::unique_ptr<LocationManager> manager = services.locationServices.makeLocationManager();
    manager->setDelegate(places);
    manager->requestLocation();
    EXPECT_TRUE(QTest::qWaitFor([&places] { return !places.heard.isEmpty(); }));
    EXPECT_EQ(places.heard.value(0), (Location{{.latitude = 12, .longitude = 34}, Location::Source::Preferences}));
    EXPECT_EQ(askedOf, &services.userDefaults);
}

} // namespace
