// SPDX-License-Identifier: MIT
#include "store/Record.h"
#include "support/AppFixture.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QMenu>
#include <QTest>

namespace {

const QString identifier = QStringLiteral("VelumoraZNYgg56Lp");
constexpr NotificationOptions everyOption =
    NotificationOption::Alert | NotificationOption::Sound | NotificationOption::Badge;

class RemindersTest : public AppFixture {
protected:
    QMenu& menu() { return *window->findChild<QMenu*>(QStringLiteral("sendNotificationContextMenu")); }
    QAction& item(int index) { return *menu().actions().at(index); }
    FakeUserNotificationCenter& center() { return host.notificationCenter; }

    void openMenu(int row)
    {
        TableView& table = *ui->notesTableView;
        const QPoint place = row < 0 ? table.viewport()->rect().bottomLeft() : table.rectOfRow(row).center();
        QContextMenuEvent click(QContextMenuEvent::Mouse, place, table.viewport()->mapToGlobal(place));
        QCoreApplication::sendEvent(table.viewport(), &click);
        runQueued();
    }

    void remind(int row)
    {
        openMenu(row);
        item(1).trigger();
        menu().close();
        runQueued();
    }

    void expectSheet(const QString& headline, const QString& body)
    {
        Alert* sheet = alert();
        ASSERT_TRUE(sheet);
        EXPECT_EQ(sheet->messageText(), headline);
        EXPECT_EQ(sheet->informativeText(), body);
        ASSERT_EQ(sheet->buttons().size(), 1);
        EXPECT_EQ(sheet->buttons().first()->text(), QStringLiteral("OK"));
    }

    /// The user clicks the notification, or dismisses it.
    void respond(NotificationResponse::Action action, const Value& note)
    {
        bool completed = false;
        NotificationResponse response{.action = action, .request = {}};
        response.request.identifier = identifier;
        response.request.content.userInfo = *note.dictionary();
        center().delegate->didReceiveNotificationResponse(response, [&] { completed = true; });
        EXPECT_TRUE(completed);
    }
};

TEST_F(RemindersTest, TheMenuOffersAReminderOfAFutureNote)
{
    putNotes({note(2024, 3, 16, "tomorrow")});
    start();
    openMenu(0);
    ASSERT_EQ(menu().actions().size(), 2);
    EXPECT_EQ(item(0).text(), QStringLiteral("March 16, 2024 has been selected. Choose an option below to continue."));
    EXPECT_FALSE(item(0).isEnabled());
    EXPECT_EQ(item(1).text(),
              QStringLiteral("Remind me about this note via the System Notification Center on: March 16, 2024"));
    EXPECT_TRUE(item(1).isEnabled());
    EXPECT_EQ(center().askedFor, QList<NotificationOptions>{everyOption});
    EXPECT_EQ(everyOption.toInt(), 7U);
}

TEST_F(RemindersTest, NotOfTodaysOrAnEarlierNote)
{
    putNotes({note(2024, 3, 14, "yesterday"), note(2024, 3, 15, "today")});
    start();
    for (const int row : {0, 1}) {
        openMenu(row);
        EXPECT_EQ(item(0).text(), QStringLiteral("Reminders can be scheduled only for future dates. Try again."));
        EXPECT_TRUE(item(0).isEnabled());
        EXPECT_EQ(item(1).text(), QString());
        EXPECT_FALSE(item(1).isEnabled());
        menu().close();
    }
}

TEST_F(RemindersTest, NotWithoutARow)
{
    putNotes({note(2024, 3, 16, "tomorrow")});
    start();
    openMenu(0);
    menu().close();
    openMenu(-1);
    EXPECT_EQ(item(0).text(), QStringLiteral("Note not selected, please try again"));
    EXPECT_TRUE(item(0).isEnabled());
    EXPECT_EQ(item(1).text(), QString());
    EXPECT_FALSE(item(1).isEnabled());
    EXPECT_EQ(center().askedFor.size(), 1) << "permission is asked for with a note alone";
}

TEST_F(RemindersTest, AReminderIsScheduledForMidnightOfItsDay)
{
    putNotes({note(2024, 7, 4, "<b>Fly</b> %@ & dine")});
    start();
    remind(0);
    const NotificationRequest expected{.identifier = identifier,
                                       .content = {.title = QStringLiteral("Velumora Reminder"),
                                                   .subtitle = {},
                                                   .body = QStringLiteral("Jul 4, 2024:<b>Fly</b> %@ & dine\n"),
                                                   .defaultSound = true,
                                                   .defaultActionTitle = QStringLiteral("Show Note"),
                                                   .userInfo = *note(2024, 7, 4, "<b>Fly</b> %@ & dine").dictionary()},
                                       .trigger = {.year = 2024, .month = 7, .day = 4, .timeZone = "Europe/Berlin"}};
    EXPECT_EQ(center().requests, QList<NotificationRequest>{expected});
    expectSheet(QStringLiteral("Reminder '<b>Fly</b> %@ & dine'\r\rscheduled for date: Jul 4, 2024"),
                QStringLiteral("When the Notification Center reminder appears, click on it to open the note with "
                               "Velumora"));
}

TEST_F(RemindersTest, ATriggerIsGregorianWhateverTheCalendar)
{
    const LocaleGuard thai("th_TH", {"en-US"});
    putNotes({makeNoteRecord(utcDate(2024, 7, 3, 22), "x")});
    start();
    remind(0);
    ASSERT_EQ(center().requests.size(), 1);
    EXPECT_EQ(center().requests.first().trigger,
              (CalendarNotificationTrigger{.year = 2024, .month = 7, .day = 4, .timeZone = "Europe/Berlin"}));
}

TEST_F(RemindersTest, WithoutPermissionItSaysSo)
{
    center().status = AuthorizationStatus::Denied;
    putNotes({note(2024, 7, 4, "Fly")});
    start();
    remind(0);
    EXPECT_TRUE(center().requests.isEmpty());
    expectSheet(QStringLiteral("Failed to post notification"),
                QStringLiteral("Need User Permission to post a notification for 7/4/24\r\rFly\r\rRecommend granting "
                               "permission in System Preferences"));
}

TEST_F(RemindersTest, AnUndecidedPermissionDoesNothing)
{
    putNotes({note(2024, 7, 4, "Fly")});
    for (const AuthorizationStatus status : {AuthorizationStatus::NotDetermined, AuthorizationStatus::Provisional}) {
        center().status = status;
        start();
        remind(0);
        EXPECT_TRUE(center().requests.isEmpty());
        EXPECT_FALSE(alert());
    }
}

TEST_F(RemindersTest, ARefusedRequestIsTold)
{
    center().refusal = QStringLiteral("no room");
    putNotes({note(2024, 7, 4, "Fly")});
    start();
    remind(0);
    answer(Alert::firstButtonReturn); // that it is scheduled
    expectSheet(QStringLiteral("Notification failed to schedule for the following:"),
                QStringLiteral("Reminder 'Fly'\r\rscheduled for date: Jul 4, 2024"));
}

TEST_F(RemindersTest, TheAnswerMayComeWhenTheProgramIsGone)
{
    putNotes({note(2024, 7, 4, "Fly")});
    start();
    openMenu(0);
    item(1).trigger();
    quit();
    runQueued();
    EXPECT_TRUE(center().requests.isEmpty());
}

TEST_F(RemindersTest, InFrontItIsPresentedWithAllOptions)
{
    start();
    EXPECT_EQ(center().delegate->willPresentNotification({}), everyOption);
}

TEST_F(RemindersTest, AClickShowsTheNoteAloneAndInASheet)
{
    putNotes({note(2024, 3, 14, "a"), note(2024, 3, 16, "as it is now"), note(2024, 3, 17, "c")});
    start();
    ui->myTabView->setCurrentIndex(2);
    respond(NotificationResponse::Action::Default, note(2024, 3, 16, "as it was"));
    EXPECT_EQ(ui->myTabView->currentIndex(), 0);
    EXPECT_EQ(app->notesTVData, Table{Value(Array{note(2024, 3, 16, "as it is now")})});
    expectSheet(QStringLiteral("Velumora Reminder"), QStringLiteral("Mar 16, 2024\ras it was"));
    EXPECT_EQ(shownRows(), QStringList{QStringLiteral("Sat, Mar 16, 2024 | as it is now")});
    EXPECT_EQ(ui->notesTableView->numberOfRows(), 1);
    EXPECT_EQ(countLine(), QStringLiteral("Displaying 1 notes"));
    EXPECT_EQ(center().removed, QStringList{identifier});
    answer(Alert::firstButtonReturn);
    typeNote(0, QStringLiteral("seen")); // an ordinary row
    EXPECT_EQ(notesOnDisk(), (Table{note(2024, 3, 14, "a"), note(2024, 3, 16, "seen"), note(2024, 3, 17, "c")}));
}

TEST_F(RemindersTest, AnEditInProgressIsKeptWhenAReminderIsClicked)
{
    putNotes({note(2024, 3, 14, "a"), note(2024, 3, 16, "b")});
    start();
    ui->notesTableView->editColumn(1, 0);
    QTest::keyClicks(ui->notesTableView->viewAt(1, 0), QStringLiteral("!"));
    respond(NotificationResponse::Action::Default, note(2024, 3, 16, "b"));
    runQueued();
    EXPECT_EQ(notesOnDisk(), (Table{note(2024, 3, 14, "a!"), note(2024, 3, 16, "b")}));
}

TEST_F(RemindersTest, ANoteThatIsGoneLeavesAnEmptyRow)
{
    putNotes({note(2024, 3, 14, "a")});
    start();
    respond(NotificationResponse::Action::Default, note(2024, 3, 16, "b"));
    runQueued();
    EXPECT_EQ(app->notesTVData, Table{Value(Array{})});
    EXPECT_EQ(ui->notesTableView->numberOfRows(), 1);
    EXPECT_EQ(ui->notesTableView->rectOfRow(0).height(), 17);
    EXPECT_EQ(countLine(), QStringLiteral("Displaying 1 notes"));
}

TEST_F(RemindersTest, WithoutAnyNotesItWarns)
{
    start();
    respond(NotificationResponse::Action::Default, note(2024, 3, 16, "b"));
    expectSheet(QStringLiteral("Warning: No Notes Data Found in 'respondWithContent:'"),
                QStringLiteral("Velumora is attempting to respond to a Notification Center message but cannot.\r"
                               "The Notification Center message is for the following date and note:\r\r"
                               "Mar 16, 2024\rb"));
    EXPECT_EQ(center().removed, QStringList{identifier});
}

TEST_F(RemindersTest, ADismissalDoesNothing)
{
    putNotes({note(2024, 3, 14, "a")});
    start();
    ui->myTabView->setCurrentIndex(1);
    respond(NotificationResponse::Action::Dismiss, note(2024, 3, 16, "b"));
    EXPECT_FALSE(alert());
    EXPECT_EQ(ui->myTabView->currentIndex(), 1);
    EXPECT_EQ(app->notesTVData, Table{note(2024, 3, 14, "a")});
    EXPECT_TRUE(center().removed.isEmpty());
}

TEST_F(RemindersTest, AResponseWithoutANoteIsTakenOffAndNothingElse)
{
    putNotes({note(2024, 3, 14, "a")});
    start();
    respond(NotificationResponse::Action::Default, Value(Dictionary()));
    EXPECT_FALSE(alert());
    EXPECT_EQ(center().removed, QStringList{identifier});
}

} // namespace
