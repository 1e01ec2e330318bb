// SPDX-License-Identifier: MIT
#pragma once

#include "app/AppDelegate.h"
#include "support/DateGuards.h"
#include "support/FakeHost.h"
#include "table/TableView.h"
#include "ui_MainWindow.h"
#include "widgets/SegmentedControl.h"

#include <QMainWindow>
#include <QPushButton>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <memory>
#include <string>

/// Runs the program's delegate on its real window, off-screen, with fakes for the desktop, a clock that stands still at
/// 15 March 2024, 09:30 in Berlin (a Friday), English, and a home of its own.
class AppFixture : public ::testing::Test {
protected:
    /// The columns of both lists.
    static constexpr int dateColumn = 0;
    static constexpr int textColumn = 1;
    static constexpr int elapsedColumn = 2;

    AppFixture();
    ~AppFixture() override;

    /// The folder of the two files; made at once, so that a test can put files there before the start.
    std::filesystem::path dataFolder() const;
    std::filesystem::path notesFile() const { return dataFolder() / "TALV VeluMora"; }
    std::filesystem::path eventsFile() const { return dataFolder() / "TALV Events"; }

    /// Writes the files that the next start reads.
    void putNotes(const Table& notes) const;
    void putEvents(const Table& events) const;

    /// What the files hold now, once all that was saved is on the disk; nullopt when there is no such file.
    std::optional<Table> notesOnDisk();
    std::optional<Table> eventsOnDisk();

    /// Makes window and delegate and runs the start-up.
    void start();

    /// Makes window and delegate only.
    void make();

    /// Ends the program in the order in which it ends.
    void quit();

    /// Runs what is queued on the event loop.
    static void runQueued();

    /// The alert that is up, null when there is none.
    Alert* alert();

    /// Presses the button of the alert that answers so, and runs the completion.
    void answer(int response);

    /// The user clicks the notification that a reminder of `note` left.
    void clickReminder(const Value& note);

    static QString text(const char* utf8) { return QString::fromUtf8(utf8); }

    /// Midnight of a day in the current calendar, and a note of it.
    static Date day(int year, int month, int dayOfMonth);
    static Value note(int year, int month, int dayOfMonth, const std::string& text);
    static Value event(int year, int month, int dayOfMonth, const std::string& name);

    /// The mini calendar's button of a day of the month shown.
    DayButton& dayButton(int dayOfMonth);

    /// The rows of the notes list as "date | text".
    QStringList shownRows();

    /// Types into the note of a row as a user does, and leaves it.
    void typeNote(int row, const QString& text);

    QString countLine() { return ui->countOfNotesInTV->text(); }

    QTemporaryDir home;
    TimeZoneGuard zone{"Europe/Berlin"};
    LocaleGuard languages{"en_US", {"en-US"}};
    FixedClock clock{utcDate(2024, 3, 15, 8, 30)};
    ClockGuard clockGuard{clock};
    FakeHost host;
    std::unique_ptr<QMainWindow> window;
    std::unique_ptr<Ui::MainWindow> ui;
    std::unique_ptr<AppDelegate> app;
};
