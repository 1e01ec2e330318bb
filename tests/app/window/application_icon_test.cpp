// SPDX-License-Identifier: MIT
#include "calendar/DockIcon.h"
#include "support/AppFixture.h"

#include <QApplication>
#include <QTest>

namespace {

const QString leaf = QStringLiteral(":/images/blank.svg");

QImage picture(DockIcon&& icon, int side)
{
    return icon.pixmap({side, side}, QIcon::Normal, QIcon::Off).toImage();
}

class ApplicationIcon : public AppFixture {
protected:
    ApplicationIcon() { QApplication::setWindowIcon({}); }
    ~ApplicationIcon() override { QApplication::setWindowIcon({}); }

    /// Starts and waits until the icon is there.
    void startWithIcon()
    {
        QApplication::setWindowIcon({});
        start();
        ASSERT_TRUE(QTest::qWaitFor([] { return !QApplication::windowIcon().isNull(); }));
    }

    /// The day that the application's icon shows, 0 when it is none.
    static int dayShown()
    {
        const QImage shown = QApplication::windowIcon().pixmap(64).toImage();
        for (int day = 1; day <= 31; ++day) {
            if (shown == picture(DockIcon(leaf, day), 64)) {
                return day;
            }
        }
        return 0;
    }
};

TEST_F(ApplicationIcon, ShowsTodayWhereTheUserIs)
{
    startWithIcon();
    EXPECT_EQ(dayShown(), 15);
    EXPECT_FALSE(window->windowIcon().isNull());
    clock.set(utcDate(2024, 3, 15, 23, 30)); // half past midnight in Berlin
    startWithIcon();
    EXPECT_EQ(dayShown(), 16);
    const TimeZoneGuard honolulu("Pacific/Honolulu");
    startWithIcon();
    EXPECT_EQ(dayShown(), 15);
}

TEST_F(ApplicationIcon, IsHandedOverAfterTheWindowsFirstPicture)
{
    make();
    app->applicationWillFinishLaunching();
    app->applicationDidFinishLaunching();
    EXPECT_TRUE(QApplication::windowIcon().isNull());
    QCoreApplication::sendPostedEvents();
    window->repaint();
    ASSERT_TRUE(QTest::qWaitFor([] { return !QApplication::windowIcon().isNull(); }));
}

TEST_F(ApplicationIcon, CountsDaysInTheUsersCalendar)
{
    struct {
        const char* locale;
        int day;
    } const rows[] = {
        {"fa_IR", 25}, // 25 Esfand 1402: the year ends on 19 March with Esfand 29
        {"en_US@calendar=persian", 25},
        {"ar_SA", 5},                 // 5 Ramadan 1445, which began on 11 March
        {"he_IL@calendar=hebrew", 5}, // 5 Adar II 5784: Purim, the 14th, was on 24 March
        {"th_TH", 15},                // years alone differ
        {"de_DE", 15},
    };
    for (const auto& row : rows) {
        const LocaleGuard locale(row.locale, {"en-US"});
        startWithIcon();
        EXPECT_EQ(dayShown(), row.day) << row.locale;
    }
}

TEST_F(ApplicationIcon, KeepsTheDayOfTheStartAfterMidnight)
{
    startWithIcon();
    const qint64 key = QApplication::windowIcon().cacheKey();
    clock.set(utcDate(2024, 3, 15, 23, 0, 5));
    host.clockMonitor.jump();
    app->minuteHasChanged();
    host.globalDefaults.setInterfaceStyle(QStringLiteral("Dark"));
    host.globalDefaults.setInterfaceStyle(std::nullopt);
    runQueued();
    EXPECT_EQ(QApplication::windowIcon().cacheKey(), key);
    EXPECT_EQ(dayShown(), 15); // though it is drawn only now
}

TEST_F(ApplicationIcon, IsNotDrawnOnASystemThatIsTooOld)
{
    host.processInfo.version = {.major = 10, .minor = 14};
    QTimer::singleShot(0, [] {
        if (auto* gate = qobject_cast<Alert*>(QApplication::activeModalWidget())) {
            gate->buttons().first()->click();
        }
    });
    start();
    runQueued();
    EXPECT_TRUE(QApplication::windowIcon().isNull());
}

} // namespace
