// SPDX-License-Identifier: MIT
#include "dates/DateUtilities.h"
#include "look/AlphaValue.h"
#include "store/Record.h"
#include "support/AppFixture.h"

#include <QAction>
#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QTest>

#include <array>
#include <fstream>
#include <functional>
#include <set>
#include <vector>

namespace {

struct Holiday {
    const char* name;
    const char* title;
    int month;
    int day; ///< of 2024, by the calendars of that year
    const char* shown;
};

constexpr std::array<Holiday, 14> holidays{{
    {"newYearsDay", "New Year's Day", 1, 1, "January 1, 2024"},
    {"presidentsDay", "Presidents' Day", 2, 19, "February 19, 2024"},
    {"dstStart", "Daylight Saving Time Begins", 3, 10, "March 10, 2024"},
    {"easter", "Easter Sunday", 3, 31, "March 31, 2024"},
    {"memorialDay", "Memorial Day", 5, 27, "May 27, 2024"},
    {"mothersDay", "Mother's Day", 5, 12, "May 12, 2024"},
    {"fathersDay", "Father's Day", 6, 16, "June 16, 2024"},
    {"independDay", "Independence Day", 7, 4, "July 4, 2024"},
    {"laborDay", "Labor Day", 9, 2, "September 2, 2024"},
    {"dstEnd", "Daylight Saving Time Ends", 11, 3, "November 3, 2024"},
    {"veteransDay", "Veterans Day", 11, 11, "November 11, 2024"},
    {"thanksGiving", "Thanksgiving Day", 11, 28, "November 28, 2024"},
    {"xmasEve", "Christmas Eve", 12, 24, "December 24, 2024"},
    {"xmasDay", "Christmas Day", 12, 25, "December 25, 2024"},
}};

constexpr std::size_t independence = 7;
constexpr std::size_t christmas = 13;

class HolidaySheetTest : public AppFixture {
protected:
    QDialog& sheet() { return *window->findChild<QDialog*>(QStringLiteral("holidaySheet")); }

    template <typename Control> Control& withTag(int tag)
    {
        for (Control* each : sheet().findChildren<Control*>()) {
            if (each->property("tag").toInt() == tag) {
                return *each;
            }
        }
        qFatal("nothing of that kind has tag %d", tag);
    }
    QCheckBox& box(std::size_t holiday) { return withTag<QCheckBox>(200 + 2 * static_cast<int>(holiday)); }
    QLabel& field(std::size_t holiday) { return withTag<QLabel>(201 + 2 * static_cast<int>(holiday)); }
    QPushButton& button(const char* name) { return *sheet().findChild<QPushButton*>(QString::fromLatin1(name)); }

    /// Opens the sheet as a user does and ticks these holidays.
    void tick(std::initializer_list<std::size_t> chosen)
    {
        ui->importantDatesUSHolidays->click();
        runQueued();
        for (const std::size_t holiday : chosen) {
            box(holiday).click();
        }
    }

    void add(const char* buttonName)
    {
        button(buttonName).click();
        runQueued();
    }

    static Value record(std::size_t holiday)
    {
        return event(2024, holidays.at(holiday).month, holidays.at(holiday).day, holidays.at(holiday).title);
    }
};

TEST_F(HolidaySheetTest, ItOffersFourteenHolidaysNoneTicked)
{
    start();
    tick({});
    EXPECT_TRUE(sheet().isVisible());
    ASSERT_EQ(sheet().findChildren<QCheckBox*>().size(), 14);
    for (std::size_t i = 0; i < holidays.size(); ++i) {
        EXPECT_EQ(box(i).objectName().toStdString(), holidays.at(i).name);
        EXPECT_EQ(box(i).text().toStdString(), holidays.at(i).title);
        EXPECT_TRUE(box(i).isEnabled());
        EXPECT_FALSE(box(i).isChecked());
        EXPECT_EQ(alphaValue(box(i)), 1.0);
        EXPECT_EQ(box(i).toolTip(), QStringLiteral("Press Button to Select Date"));
        EXPECT_EQ(field(i).text(), QString());
    }
    EXPECT_EQ(button("addDatesBtn").text(), QStringLiteral("Add Dates"));
    EXPECT_EQ(button("addDatesAndNotesBtn").text(), QStringLiteral("Add Dates and Notes"));
    EXPECT_FALSE(button("addDatesBtn").isEnabled());
    EXPECT_FALSE(button("addDatesAndNotesBtn").isEnabled());
}

TEST_F(HolidaySheetTest, ATickShowsTheDateAndOffersTheButtons)
{
    start();
    tick({});
    for (std::size_t i = 0; i < holidays.size(); ++i) {
        box(i).click();
        EXPECT_EQ(field(i).text().toStdString(), holidays.at(i).shown);
        EXPECT_EQ(box(i).accessibleDescription().toStdString(), holidays.at(i).shown);
        EXPECT_TRUE(button("addDatesBtn").isEnabled());
        EXPECT_TRUE(button("addDatesAndNotesBtn").isEnabled());
        box(i).click();
        EXPECT_EQ(field(i).text(), QString());
        EXPECT_FALSE(button("addDatesBtn").isEnabled());
        EXPECT_FALSE(button("addDatesAndNotesBtn").isEnabled());
    }
}

TEST_F(HolidaySheetTest, TheButtonsStayWhileAnyOtherIsTicked)
{
    start();
    tick({2, 5});
    box(2).click();
    EXPECT_TRUE(button("addDatesBtn").isEnabled());
    box(5).click();
    EXPECT_FALSE(button("addDatesBtn").isEnabled());
}

TEST_F(HolidaySheetTest, AHolidayAlreadySavedIsGrey)
{
    putEvents({record(independence), event(2023, 12, 25, "Christmas Day"), event(2024, 11, 11, "Armistice"),
               Value("no record")});
    start();
    tick({});
    for (std::size_t i = 0; i < holidays.size(); ++i) {
        const bool saved = i == independence; // last year's and one of another name do not count
        EXPECT_EQ(box(i).isEnabled(), !saved) << holidays.at(i).title;
        EXPECT_EQ(alphaValue(box(i)), saved ? 0.5 : 1.0);
        EXPECT_EQ(box(i).toolTip(), saved ? QStringLiteral("already saved as an 'Important Date'")
                                          : QStringLiteral("Press Button to Select Date"));
    }
}

TEST_F(HolidaySheetTest, ItIsOfferedAgainInTheNextYear)
{
    putEvents({record(christmas)});
    start();
    clock.set(utcDate(2025, 1, 1, 0));
    tick({christmas});
    EXPECT_EQ(field(christmas).text(), QStringLiteral("December 25, 2025"));
}

TEST_F(HolidaySheetTest, AddDatesWritesTheDatesAlone)
{
    putNotes({note(2024, 7, 4, "Dentist")});
    putEvents({event(1990, 5, 20, "Ann")});
    start();
    tick({christmas, independence});
    add("addDatesBtn");
    EXPECT_FALSE(sheet().isVisible());
    const Table expected{event(1990, 5, 20, "Ann"), record(independence), record(christmas)};
    EXPECT_EQ(app->eventsTVData, expected) << "in the order of the sheet";
    EXPECT_EQ(eventsOnDisk(), expected);
    EXPECT_EQ(ui->importantDatesTableView->numberOfRows(), 3);
    EXPECT_EQ(notesOnDisk(), Table{note(2024, 7, 4, "Dentist")});
}

TEST_F(HolidaySheetTest, AddDatesAndNotesWritesBoth)
{
    putNotes({note(2024, 7, 4, "Dentist"), note(2024, 12, 25, "On Christmas Day: goose"), note(2024, 3, 1, "x")});
    start();
    tick({3, independence, christmas});
    add("addDatesAndNotesBtn");
    const Table notes{note(2024, 7, 4, "Dentist\rIndependence Day"), note(2024, 12, 25, "On Christmas Day: goose"),
                      note(2024, 3, 1, "x"), note(2024, 3, 31, "Easter Sunday")};
    EXPECT_EQ(app->allNotesTVData, notes);
    EXPECT_EQ(notesOnDisk(), notes);
    EXPECT_EQ(eventsOnDisk(), (Table{record(3), record(independence), record(christmas)}));
    EXPECT_EQ(dayButton(31).state(), DayButton::On) << "the mini calendar marks the new note";
}

TEST_F(HolidaySheetTest, TheDaysThatWereShownAreAddedThoughTheYearTurnedMeanwhile)
{
    constexpr std::size_t thanksgiving = 11;
    start();
    tick({thanksgiving, christmas});
    clock.set(utcDate(2025, 1, 1, 12));
    add("addDatesAndNotesBtn");
    EXPECT_EQ(eventsOnDisk(), (Table{record(thanksgiving), record(christmas)}));
    EXPECT_EQ(notesOnDisk(), (Table{note(2024, 11, 28, "Thanksgiving Day"), note(2024, 12, 25, "Christmas Day")}));
}

TEST_F(HolidaySheetTest, AShownNoteIsTheOneThatWasSaved)
{
    putNotes({note(2024, 3, 10, "Sunday"), note(2024, 3, 11, "Monday")});
    start();
    tick({2});
    add("addDatesAndNotesBtn");
    EXPECT_EQ(shownRows(), (QStringList{QStringLiteral("Sun, Mar 10, 2024 | Sunday\rDaylight Saving Time Begins"),
                                        QStringLiteral("Mon, Mar 11, 2024 | Monday")}));
    typeNote(0, QStringLiteral("Clocks")); // an edit of it replaces the whole note
    EXPECT_EQ(notesOnDisk(), (Table{note(2024, 3, 10, "Clocks"), note(2024, 3, 11, "Monday")}));
}

TEST_F(HolidaySheetTest, AnAddedNoteIsAtOnceInEveryListThatShouldHoldIt)
{
    struct List {
        const char* what;
        std::function<void()> show;
        bool holds;
    };
    const auto press = [this](int segment) { return [this, segment] { ui->hideShowSegBtn->press(segment); }; };
    const auto search = [this](const char* needle) {
        return [this, needle] {
            ui->filterField->setText(QString::fromLatin1(needle));
            ui->filterBtn->click();
        };
    };
    const std::vector<List> lists = {
        {"all, as at the start", [] {}, true},
        {"this month", press(0), true},
        {"this year", press(3), true},
        {"the month of the mini calendar", press(2), true},
        {"the next month", [this] { ui->noteEntryNextNotesBtn->click(); }, false},
        {"none", press(1), false},
        {"what it contains", search("day"), true},
        {"what it does not contain", search("early"), false},
        {"a reminder's",
         [this] {
             clickReminder(note(2024, 3, 5, "early day"));
             answer(Alert::firstButtonReturn);
         },
         false},
    };
    for (const List& list : lists) {
        std::filesystem::remove(eventsFile());
        putNotes({note(2024, 3, 5, "early day"), note(2024, 4, 2, "april day")});
        start();
        list.show();
        const int before = ui->notesTableView->numberOfRows();
        const QString count = countLine();
        tick({3}); // Easter Sunday, 31 March
        add("addDatesAndNotesBtn");
        EXPECT_EQ(shownRows().contains(QStringLiteral("Sun, Mar 31, 2024 | Easter Sunday")), list.holds) << list.what;
        EXPECT_EQ(ui->notesTableView->numberOfRows(), before + (list.holds ? 1 : 0)) << list.what;
        EXPECT_EQ(countLine(), list.holds ? QStringLiteral("Displaying %1 notes").arg(before + 1) : count) << list.what;
        quit();
    }
}

TEST_F(HolidaySheetTest, InAMonthAnAddedNoteStandsAtItsDateAndTheSelectionStays)
{
    putNotes({note(2024, 3, 31, "last"), note(2024, 3, 5, "early")});
    start();
    ui->hideShowSegBtn->press(0);
    ui->notesTableView->chooseRow(1);
    tick({2}); // 10 March
    add("addDatesAndNotesBtn");
    EXPECT_EQ(shownRows(), (QStringList{QStringLiteral("Tue, Mar 5, 2024 | early"),
                                        QStringLiteral("Sun, Mar 10, 2024 | Daylight Saving Time Begins"),
                                        QStringLiteral("Sun, Mar 31, 2024 | last")}));
    EXPECT_EQ(ui->notesTableView->selectedRow(), 2);
}

TEST_F(HolidaySheetTest, WhatIsBeingTypedIntoTheDayOfAHolidayIsKeptWithIt)
{
    putNotes({note(2024, 3, 31, "Eggs")});
    start();
    tick({3});
    ui->notesTableView->editColumn(1, 0);
    QTest::keyClicks(ui->notesTableView->viewAt(1, 0), QStringLiteral("!"));
    add("addDatesAndNotesBtn");
    EXPECT_EQ(notesOnDisk(), Table{note(2024, 3, 31, "Eggs!\rEaster Sunday")});
    ui->notesTableView->endEditing();
    EXPECT_EQ(notesOnDisk(), Table{note(2024, 3, 31, "Eggs!\rEaster Sunday")});
}

TEST_F(HolidaySheetTest, AnAddedHolidayIsGreyAtTheNextOpening)
{
    start();
    tick({1});
    add("addDatesBtn");
    tick({});
    EXPECT_FALSE(box(1).isEnabled());
    EXPECT_FALSE(box(1).isChecked()) << "every opening starts afresh";
    EXPECT_EQ(field(1).text(), QString());
}

TEST_F(HolidaySheetTest, ASecondPressAddsNothing)
{
    start();
    tick({3});
    QPushButton& addDates = button("addDatesAndNotesBtn");
    addDates.click();
    app->addDatesFromHolidaySheet(addDates);
    EXPECT_EQ(eventsOnDisk(), Table{record(3)});
    EXPECT_EQ(notesOnDisk(), Table{note(2024, 3, 31, "Easter Sunday")});
}

TEST_F(HolidaySheetTest, CancellingAddsNothing)
{
    start();
    tick({1, 2});
    add("cancelBtn");
    EXPECT_FALSE(sheet().isVisible());
    EXPECT_EQ(app->eventsTVData, Table());
    EXPECT_EQ(eventsOnDisk(), std::nullopt);
    tick({});
    EXPECT_FALSE(box(1).isChecked());
}

TEST_F(HolidaySheetTest, AHolidayWithoutAMidnightCarriesTheFirstInstantOfItsDay)
{
    const TimeZoneGuard havana("America/Havana"); // 10 March 2024 began at 01:00, 05:00 in Greenwich
    start();
    tick({2});
    add("addDatesAndNotesBtn");
    const Date first = utcDate(2024, 3, 10, 5);
    EXPECT_EQ(eventsOnDisk(), Table{makeEventRecord(first, "Daylight Saving Time Begins")});
    EXPECT_EQ(notesOnDisk(), Table{makeNoteRecord(first, "Daylight Saving Time Begins")});
    tick({});
    EXPECT_FALSE(box(2).isEnabled());
}

TEST_F(HolidaySheetTest, ATickedHolidayLandsOnItsDayInEveryLanguage)
{
    for (const char* locale : {"es_US", "zh_Hans_US", "ko_US", "fr_US", "de_US", "vi_US", "chr_US", "haw_US"}) {
        const LocaleGuard spoken(locale, {locale});
        std::filesystem::remove(eventsFile());
        start();
        ui->importantDatesUSHolidays->click();
        for (std::size_t i = 0; i < holidays.size(); ++i) {
            box(i).click();
            EXPECT_EQ(box(i).text().toStdString(), holidays.at(i).title) << "a record's name is never translated";
        }
        add("addDatesBtn");
        Table expected;
        for (std::size_t i = 0; i < holidays.size(); ++i) {
            expected.append(record(i));
        }
        EXPECT_EQ(eventsOnDisk(), expected) << locale;
    }
}

TEST_F(HolidaySheetTest, UnreadableFilesTakeNothingIn)
{
    std::ofstream(eventsFile()) << "no events";
    std::ofstream(notesFile()) << "no notes";
    start();
    tick({1});
    add("addDatesAndNotesBtn");
    EXPECT_FALSE(sheet().isVisible());
    EXPECT_FALSE(app->eventsTVData);
    EXPECT_FALSE(app->allNotesTVData);
    app->waitForSaves();
    EXPECT_FALSE(std::filesystem::exists(eventsFile())) << "a save of no records takes the file away";
    std::multiset<std::uintmax_t> kept;
    for (const auto& copy : std::filesystem::directory_iterator(dataFolder() / "Recovered")) {
        kept.insert(copy.file_size());
    }
    EXPECT_EQ(kept, (std::multiset<std::uintmax_t>{8, 9})) << "and its bytes are kept";
}

TEST_F(HolidaySheetTest, ACheckBoxThatIsNoHolidayClearsItsFieldAlone)
{
    start();
    tick({});
    QCheckBox stray(&sheet());
    stray.setProperty("tag", 300);
    QLabel strayField(QStringLiteral("left over"), &sheet());
    strayField.setProperty("tag", 301);
    stray.setChecked(true);
    app->respondToHolidayPressed(stray);
    EXPECT_EQ(strayField.text(), QStringLiteral("left over"));
    stray.setChecked(false);
    app->respondToHolidayPressed(stray);
    EXPECT_EQ(strayField.text(), QString());
    EXPECT_FALSE(button("addDatesBtn").isEnabled());
}

TEST_F(HolidaySheetTest, TheMenuOffersItWhereTheButtonDoes)
{
    start();
    EXPECT_TRUE(ui->usHolidaysAction->isEnabled());
    ui->usHolidaysAction->trigger();
    runQueued();
    EXPECT_TRUE(sheet().isVisible());
    const LocaleGuard german("de_DE", {"de-DE"});
    start();
    EXPECT_FALSE(ui->usHolidaysAction->isEnabled());
}

} // namespace
