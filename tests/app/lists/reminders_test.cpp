// SPDX-License-Identifier: MIT
#include "store/Record.h"
#include "support/AppFixture.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QDialog>
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

TEST_F(RemindersTest, NotOfANoteOfExactlyNow)
{
    putNotes({note(2024, 3, 16, "tomorrow")});
    start();
    clock.set(utcDate(2024, 3, 15, 23)); // midnight in Berlin
    openMenu(0);
    EXPECT_EQ(item(0).text(), QStringLiteral("Reminders can be scheduled only for future dates. Try again."));
    EXPECT_FALSE(item(1).isEnabled());
    menu().close();
    clock.set(utcDate(2024, 3, 15, 22, 59));
    openMenu(0);
    EXPECT_TRUE(item(1).isEnabled());
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
    answer(Alert::firstButtonReturn);
    QTest::mouseClick(ui->notesTableView->viewport(), Qt::LeftButton, {},
                      ui->notesTableView->rectOfCell(1, 0).center());
    EXPECT_EQ(ui->notesTableView->selectedRow(), 0);
    EXPECT_EQ(ui->notesTableView->editedRow(), -1) << "what is typed there would have no day";
    QTest::keyClick(ui->notesTableView, Qt::Key_Return);
    EXPECT_EQ(ui->notesTableView->editedRow(), -1);
}

TEST_F(RemindersTest, NoRowIsSelectedInTheListOfAReminder)
{
    putNotes({note(2024, 3, 14, "a"), note(2024, 3, 16, "b")});
    start();
    ui->notesTableView->chooseRow(0);
    respond(NotificationResponse::Action::Default, note(2024, 3, 16, "b"));
    runQueued();
    EXPECT_EQ(ui->notesTableView->selectedRow(), -1);
    EXPECT_FALSE(ui->deleteRowFromListBtn->isEnabled()) << "it would delete another note than the one selected";
}

TEST_F(RemindersTest, UnderADeletionSheetARemindersRowsWaitForItsAnswer)
{
    const Table notes{note(2024, 3, 14, "a"), note(2024, 3, 16, "b"), note(2024, 3, 17, "c")};
    for (const int response : {Alert::firstButtonReturn, Alert::secondButtonReturn}) {
        putNotes(notes);
        start();
        ui->notesTableView->selectRow(0);
        ui->deleteRowFromListBtn->click();
        ASSERT_EQ(alert()->informativeText(), QStringLiteral("of note for\r Mar 14, 2024"));
        respond(NotificationResponse::Action::Default, note(2024, 3, 17, "c"));
        runQueued();
        app->minuteHasChanged();
        EXPECT_EQ(app->notesTVData, notes);
        EXPECT_EQ(ui->notesTableView->selectedRow(), 0);
        EXPECT_EQ(center().removed, QStringList{identifier}) << "the notification has done its work";
        answer(response);
        const bool deleted = response == Alert::firstButtonReturn;
        EXPECT_EQ(notesOnDisk(), deleted ? Table({note(2024, 3, 16, "b"), note(2024, 3, 17, "c")}) : notes);
        expectSheet(QStringLiteral("Velumora Reminder"), QStringLiteral("Mar 17, 2024\rc"));
        EXPECT_EQ(app->notesTVData, Table{Value(Array{note(2024, 3, 17, "c")})});
        EXPECT_EQ(shownRows(), QStringList{QStringLiteral("Sun, Mar 17, 2024 | c")});
        EXPECT_EQ(countLine(), QStringLiteral("Displaying 1 notes"));
        answer(Alert::firstButtonReturn);
        center().removed.clear();
        quit();
    }
}

TEST_F(RemindersTest, UnderASheetARemindersPageAndTheEndOfAnEditWaitToo)
{
    putNotes({note(2024, 3, 14, "a"), note(2024, 3, 16, "b")});
    start();
    ui->notesTableView->editColumn(1, 0);
    QWidget* editor = ui->notesTableView->viewAt(1, 0);
    QTest::keyClicks(editor, QStringLiteral("!"));
    ui->preferencesAction->trigger();
    runQueued();
    respond(NotificationResponse::Action::Default, note(2024, 3, 16, "b"));
    runQueued();
    EXPECT_EQ(ui->notesTableView->viewAt(1, 0), editor);
    EXPECT_EQ(app->notesTVData->size(), 2);
    window->findChild<QDialog*>(QStringLiteral("thePrefsSheet"))->done(0);
    expectSheet(QStringLiteral("Velumora Reminder"), QStringLiteral("Mar 16, 2024\rb"));
    EXPECT_EQ(notesOnDisk(), (Table{note(2024, 3, 14, "a!"), note(2024, 3, 16, "b")}));
    EXPECT_EQ(app->notesTVData, Table{Value(Array{note(2024, 3, 16, "b")})});
    answer(Alert::firstButtonReturn);

    ui->myTabView->setCurrentIndex(2);
    ui->preferencesAction->trigger();
    runQueued();
    respond(NotificationResponse::Action::Default, note(2024, 3, 14, "a!"));
    EXPECT_EQ(ui->myTabView->currentIndex(), 2);
    window->findChild<QDialog*>(QStringLiteral("thePrefsSheet"))->done(0);
    runQueued();
    EXPECT_EQ(ui->myTabView->currentIndex(), 0);
}

TEST_F(RemindersTest, AMenuThatWasOpenWhenTheRowsChangedIsAboutNoRow)
{
    putNotes({note(2024, 3, 16, "b"), note(2024, 3, 17, "c")});
    start();
    openMenu(0);
    respond(NotificationResponse::Action::Default, note(2024, 3, 17, "c"));
    runQueued();
    item(1).trigger();
    runQueued();
    EXPECT_TRUE(center().requests.isEmpty()) << "it named another note";
}

TEST_F(RemindersTest, AMenuOfLessThanTwoItemsSchedulesNothing)
{
    putNotes({note(2024, 3, 16, "tomorrow")});
    start();
    openMenu(0);
    QMenu one;
    app->respondToContextualMenuTab1(*one.addAction(QStringLiteral("Remind me")));
    runQueued();
    EXPECT_TRUE(center().requests.isEmpty());
    QMenu two;
    two.addAction(QString());
    app->respondToContextualMenuTab1(*two.addAction(QStringLiteral("Remind me")));
    runQueued();
    EXPECT_EQ(center().requests.size(), 1);
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
