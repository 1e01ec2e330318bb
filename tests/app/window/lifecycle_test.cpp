// SPDX-License-Identifier: MIT
#include "app/PreferenceKeys.h"
#include "calendar/DayButton.h"
#include "calendar/MiniCalendarGrid.h"
#include "look/AlphaValue.h"
#include "look/NamedColor.h"
#include "support/AppFixture.h"

#include <QAction>
#include <QTimer>
#include <QTimerEvent>

#include <functional>
#include <set>

namespace {

const QString willFinish = QStringLiteral("setDelegate");
const QString versionGate = QStringLiteral("operatingSystemVersion");
const QString registerDefaults = QStringLiteral("registerDefaults");
const QString locationService = QStringLiteral("requestLocation");
const QString readsWeekStart = QStringLiteral("integerForKey ") + PreferenceKeys::weekStart;
const QString readsCleaned = QStringLiteral("integerForKey ") + PreferenceKeys::notesCleaned;
const QString readsStartList = QStringLiteral("integerForKey ") + PreferenceKeys::startList;

class LifecycleTest : public AppFixture {
protected:
    /// Starts and runs `look` at the `occurrence`th time that the program makes that call; the test fails when it does
    /// not.
    void startLookingAt(const QString& call, int occurrence, const std::function<void()>& look)
    {
        int seen = 0;
        host.journal.onCall = [&, this](const QString& entry) {
            if (entry == call && ++seen == occurrence) {
                const auto inUse = std::exchange(host.journal.onCall, nullptr);
                look();
                host.journal.onCall = inUse;
            }
        };
        start();
        host.journal.onCall = nullptr;
        EXPECT_GE(seen, occurrence) << call.toStdString() << " was not called so often";
    }

    QColor red() const { return namedColor(u"SystemRedColor", window->palette()); }

    /// The days of the mini calendar whose number is red.
    std::set<int> redDays()
    {
        std::set<int> days;
        for (const DayButton* button : ui->miniCalendarGrid->dayButtons()) {
            if (button->titleColor() == red()) {
                days.insert(button->title().toInt());
            }
        }
        return days;
    }

    /// The text of the clock, with every kind of blank as a plain one.
    QString clockText() const { return ui->miniCalTime->text().simplified().replace(QChar(0x202f), u' '); }

    QTimer& minuteTimer()
    {
        const QList<QTimer*> timers = app->findChildren<QTimer*>();
        EXPECT_EQ(timers.size(), 1);
        return *timers.first();
    }

    void runMinute()
    {
        QTimerEvent event(minuteTimer().timerId());
        QCoreApplication::sendEvent(&minuteTimer(), &event);
    }
};

class StartUpOrder : public LifecycleTest {
protected:
    StartUpOrder()
    {
        putNotes({note(2024, 3, 2, "in March"), note(2024, 4, 1, "in April")});
        putEvents({event(1990, 5, 4, "Ada")});
    }

    bool tablesAreEmpty() const { return app->allNotesTVData->isEmpty() && app->eventsTVData->isEmpty(); }
};

TEST_F(StartUpOrder, ServicesAreCalledInOrder)
{
    start();
    const QStringList known{willFinish,   versionGate,    registerDefaults, readsWeekStart,
                            readsCleaned, readsStartList, locationService};
    QStringList calls = host.journal.entries;
    calls.removeIf([&known](const QString& call) { return !known.contains(call); });
    EXPECT_EQ(calls, (QStringList{willFinish, versionGate, registerDefaults, readsWeekStart, readsCleaned,
                                  readsWeekStart, locationService, readsStartList}));
}

TEST_F(StartUpOrder, BeforeTheGateNothingShows)
{
    startLookingAt(willFinish, 1, [this] { EXPECT_FALSE(window->isVisible()); });
    EXPECT_EQ(host.notificationCenter.delegate, app.get());
    startLookingAt(versionGate, 1, [this] {
        EXPECT_FALSE(window->isVisible());
        EXPECT_TRUE(tablesAreEmpty());
    });
}

TEST_F(StartUpOrder, TheWindowShowsBeforeAnythingIsRegisteredOrLoaded)
{
    startLookingAt(registerDefaults, 1, [this] {
        EXPECT_TRUE(window->isVisible());
        EXPECT_TRUE(tablesAreEmpty());
    });
    EXPECT_TRUE(window->isActiveWindow()); // the desktop grants it when the event loop runs
}

TEST_F(StartUpOrder, DefaultsAreRegisteredBeforeTheWeekStartIsRead)
{
    startLookingAt(readsWeekStart, 1, [this] {
        EXPECT_EQ(host.userDefaults.registered.size(), 3);
        EXPECT_FALSE(ui->importantDatesUSHolidays->isEnabled());
        EXPECT_TRUE(tablesAreEmpty());
    });
}

TEST_F(StartUpOrder, HolidaysAreOfferedBeforeTheNotesAreLoadedAndTheNotesBeforeTheDates)
{
    startLookingAt(readsCleaned, 1, [this] {
        EXPECT_TRUE(ui->importantDatesUSHolidays->isEnabled());
        EXPECT_EQ(app->allNotesTVData->size(), 2);
        EXPECT_TRUE(app->notesTVData->isEmpty());
        EXPECT_TRUE(app->eventsTVData->isEmpty());
        EXPECT_EQ(ui->miniCalMonthName->text(), QString());
    });
}

TEST_F(StartUpOrder, ListAndCalendarAreShownBeforeTheFirstMinute)
{
    // The second reading is the redrawing of the minute: the layout of the start itself reads the week start once.
    startLookingAt(readsWeekStart, 2, [this] {
        EXPECT_EQ(app->eventsTVData->size(), 1);
        EXPECT_EQ(ui->notesTableView->numberOfRows(), 2);
        EXPECT_EQ(ui->importantDatesTableView->numberOfRows(), 1);
        EXPECT_EQ(ui->miniCalMonthName->text(), QStringLiteral("March"));
        EXPECT_EQ(ui->miniCalYear->text(), QStringLiteral("2024"));
        EXPECT_EQ(dayButton(2).state(), DayButton::On);
        EXPECT_EQ(dayButton(3).state(), DayButton::Off);
        EXPECT_EQ(ui->hideShowSegBtn->labelForSegment(0), QStringLiteral("March Notes"));
        EXPECT_EQ(ui->hideShowSegBtn->labelForSegment(3), QStringLiteral("2024 Notes"));
        EXPECT_EQ(countLine(), QStringLiteral("Displaying 2 notes"));
        EXPECT_EQ(ui->myTabView->currentIndex(), 0);
        EXPECT_EQ(redDays(), std::set<int>());
    });
}

TEST_F(StartUpOrder, TheMinuteRanBeforeTheLocationIsAskedForAndTheListIsNarrowedAfterwards)
{
    host.userDefaults.stored.insert(PreferenceKeys::startList, 0);
    startLookingAt(locationService, 1, [this] {
        EXPECT_EQ(clockText(), QStringLiteral("9:30 AM"));
        EXPECT_TRUE(minuteTimer().isActive());
        EXPECT_FALSE(window->property("UserWantsNotificationsKey").isValid());
        EXPECT_EQ(ui->notesTableView->numberOfRows(), 2);
        EXPECT_EQ(ui->prevMonthYearDesc->text(), QString());
    });
    EXPECT_EQ(ui->notesTableView->numberOfRows(), 1);
    EXPECT_EQ(ui->prevMonthYearDesc->text(), QStringLiteral("Feb 2024"));
    EXPECT_EQ(ui->nextMonthYearDesc->text(), QStringLiteral("Apr 2024"));
    EXPECT_EQ(redDays(), std::set<int>{15});
}

TEST_F(StartUpOrder, WhatAFormerRunLeftOnTheWindowIsCleared)
{
    make();
    window->setProperty("UserWantsNotificationsKey", true);
    app->applicationWillFinishLaunching();
    app->applicationDidFinishLaunching();
    EXPECT_FALSE(window->property("UserWantsNotificationsKey").isValid());
}

TEST_F(LifecycleTest, WithTheListPreferenceOffItStartsWithTheCurrentMonth)
{
    putNotes({note(2024, 3, 2, "in March"), note(2024, 4, 1, "in April")});
    host.userDefaults.stored.insert(PreferenceKeys::startList, 0);
    start();
    EXPECT_EQ(shownRows(), QStringList{QStringLiteral("Sat, Mar 2, 2024 | in March")});
    EXPECT_EQ(ui->hideShowSegBtn->labelForSegment(1), QStringLiteral("Show All"));
}

TEST_F(LifecycleTest, WithTheListPreferenceOnItStartsWithAllNotes)
{
    putNotes({note(2024, 3, 2, "in March"), note(2024, 4, 1, "in April")});
    start();
    EXPECT_EQ(shownRows().size(), 2);
    EXPECT_EQ(ui->hideShowSegBtn->labelForSegment(1), QStringLiteral("Hide All"));
    EXPECT_EQ(countLine(), QStringLiteral("Displaying 2 notes"));
}

TEST_F(LifecycleTest, UsHolidaysAreOfferedInTheUnitedStatesAlone)
{
    struct {
        const char* locale;
        bool offered;
    } const rows[] = {{"en_US", true},  {"es_US", true}, {"zh_Hans_US", true}, {"de_DE", false},
                      {"en_GB", false}, {"en", false},   {"us", false}};
    for (const auto& row : rows) {
        const LocaleGuard locale(row.locale, {"en-US"});
        start();
        EXPECT_EQ(ui->importantDatesUSHolidays->isEnabled(), row.offered) << row.locale;
        EXPECT_EQ(alphaValue(*ui->importantDatesUSHolidays), row.offered ? 1 : 0) << row.locale;
    }
}

// --- The version gate ------------------------------------------------------------------------------------------------

struct GateCase {
    int major;
    int minor;
    bool passes;
};

class VersionGate : public LifecycleTest, public ::testing::WithParamInterface<GateCase> {};

TEST_P(VersionGate, LetsAReleaseThroughThatIsNewEnoughOrOfAnotherNumber)
{
    host.processInfo.version = {.major = GetParam().major, .minor = GetParam().minor};
    QTimer refusal;
    refusal.setSingleShot(true);
    bool refused = false;
    QObject::connect(&refusal, &QTimer::timeout, [&refused] {
        if (auto* gate = qobject_cast<Alert*>(QApplication::activeModalWidget())) {
            refused = true;
            gate->buttons().first()->click();
        }
    });
    refusal.start(0);
    start();
    EXPECT_EQ(refused, !GetParam().passes);
    EXPECT_EQ(window->isVisible(), GetParam().passes);
    EXPECT_TRUE(host.workspace.opened.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(Releases, VersionGate,
                         ::testing::Values(GateCase{10, 0, false}, GateCase{10, 14, false}, GateCase{10, 15, true},
                                           GateCase{10, 16, true}, GateCase{11, 0, true}, GateCase{14, 5, true},
                                           GateCase{9, 2, true}, GateCase{0, 0, true}));

TEST_F(LifecycleTest, AnOlderSystemIsToldAndTheProgramEndsWithoutTouchingAFile)
{
    host.processInfo.version = {.major = 10, .minor = 14};
    putNotes({note(2024, 3, 2, "in March")});
    const auto written = std::filesystem::last_write_time(notesFile());
    make();
    bool ended = false;
    QObject::connect(app.get(), &AppDelegate::terminated, [&ended] { ended = true; });
    QTimer::singleShot(0, [] {
        auto* gate = qobject_cast<Alert*>(QApplication::activeModalWidget());
        EXPECT_EQ(gate->messageText(), QStringLiteral("Sorry, Velumora requires Mac OS X version 10.15 or later."));
        EXPECT_EQ(gate->informativeText(), QString());
        EXPECT_EQ(gate->alertStyle(), Alert::Style::Informational);
        EXPECT_EQ(gate->buttons().at(0)->text(), QStringLiteral("OK"));
        EXPECT_EQ(gate->buttons().at(1)->text(), QStringLiteral("Go to Velumora web page"));
        gate->buttons().at(1)->click();
    });
    app->applicationWillFinishLaunching();
    app->applicationDidFinishLaunching();
    EXPECT_TRUE(ended);
    EXPECT_EQ(host.workspace.opened.size(), 1); // the second button opens the web page
    EXPECT_FALSE(window->isVisible());
    EXPECT_TRUE(app->allNotesTVData->isEmpty());
    EXPECT_TRUE(host.userDefaults.registered.isEmpty());
    quit();
    EXPECT_EQ(std::filesystem::last_write_time(notesFile()), written);
}

// --- Tabs ------------------------------------------------------------------------------------------------------------

TEST_F(LifecycleTest, SelectingATabEmptiesTheTitle)
{
    start();
    for (const int page : {1, 2, 0}) {
        window->setWindowTitle(QStringLiteral("something"));
        ui->myTabView->setCurrentIndex(page);
        EXPECT_EQ(window->windowTitle(), QString());
    }
}

TEST_F(LifecycleTest, OfATabsIdentifierTheLowEightBitsCount)
{
    start();
    struct {
        int identifier;
        bool isMiniCalendar;
    } const rows[] = {{0, true}, {256, true}, {-256, true}, {1, false}, {3, false}, {257, false}};
    for (const auto& row : rows) {
        // A day that is red though it is not today shows whether the mini calendar was drawn anew.
        dayButton(9).setTitleColor(red());
        QWidget page;
        page.setProperty("identifier", row.identifier);
        app->didSelectTabViewItem(page);
        EXPECT_EQ(redDays().contains(9), !row.isMiniCalendar) << row.identifier;
    }
}

TEST_F(LifecycleTest, ClosingTheWindowQuitsTheProgram)
{
    EXPECT_TRUE(AppDelegate::applicationShouldTerminateAfterLastWindowClosed());
}

TEST_F(LifecycleTest, TheQuitCommandAsksForTheEnd)
{
    start();
    int asked = 0;
    QObject::connect(app.get(), &AppDelegate::terminated, [&asked] { ++asked; });
    ui->quitAction->trigger();
    EXPECT_EQ(asked, 1);
}

// --- The minute ------------------------------------------------------------------------------------------------------

TEST_F(LifecycleTest, TheNextMinuteIsAwaitedFromTheSecondItIs)
{
    start();
    EXPECT_TRUE(minuteTimer().isSingleShot());
    EXPECT_EQ(minuteTimer().intervalAsDuration(), std::chrono::seconds(60));
    clock.set(utcDate(2024, 3, 15, 8, 31, 20));
    runMinute();
    EXPECT_EQ(clockText(), QStringLiteral("9:31 AM"));
    EXPECT_TRUE(minuteTimer().isActive());
    EXPECT_EQ(minuteTimer().intervalAsDuration(), std::chrono::seconds(40));
}

TEST_F(LifecycleTest, AJumpOfTheClockArmsTheSameTimerAnew)
{
    start();
    clock.set(utcDate(2024, 3, 15, 10, 0, 45));
    for (int jump = 0; jump < 3; ++jump) {
        host.clockMonitor.jump();
    }
    EXPECT_EQ(clockText(), QStringLiteral("11:00 AM"));
    EXPECT_TRUE(minuteTimer().isActive());
    EXPECT_EQ(minuteTimer().intervalAsDuration(), std::chrono::seconds(15));
}

TEST_F(LifecycleTest, TodaysRedMovesOnAfterMidnight)
{
    putNotes({note(2024, 3, 15, "friday"), note(2024, 3, 16, "saturday")});
    start();
    const auto rowColor = [this](int row) {
        const TableView& table = *ui->notesTableView;
        return app->viewForTableColumn(table, table.tableColumns().front(), row).textColor;
    };
    EXPECT_EQ(redDays(), std::set<int>{15});
    EXPECT_EQ(rowColor(0), red());
    clock.set(utcDate(2024, 3, 15, 23, 0, 5)); // 00:00:05 in Berlin
    host.clockMonitor.jump();
    EXPECT_EQ(redDays(), std::set<int>{16});
    EXPECT_NE(rowColor(0), red());
    EXPECT_EQ(rowColor(1), red());
}

TEST_F(LifecycleTest, ANewZoneShowsItsTimeAndItsToday)
{
    start();
    const TimeZoneGuard honolulu("Pacific/Honolulu"); // 10 hours behind UTC: still the evening before
    host.clockMonitor.jump();
    EXPECT_EQ(clockText(), QStringLiteral("10:30 PM"));
    EXPECT_EQ(redDays(), std::set<int>{14});
}

TEST_F(LifecycleTest, OnceItEndsNoMinuteIsAwaited)
{
    start();
    app->applicationWillTerminate();
    EXPECT_FALSE(minuteTimer().isActive());
}

} // namespace
