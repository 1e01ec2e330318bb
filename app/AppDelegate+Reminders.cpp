// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"
#include "dates/DateUtilities.h"
#include "notes/NoteQueries.h"
#include "table/TableView.h"
#include "text/Localized.h"
#include "text/TextCutting.h"
#include "ui_MainWindow.h"
#include "widgets/DateNotesMenu.h"
#include "widgets/ReminderMenu.h"

#include <QAction>
#include <QDate>
#include <QMainWindow>
#include <QPointer>

namespace {

/// Every reminder's: a new one takes the place of the one that is pending.
const QString reminderIdentifier = QStringLiteral("VelumoraZNYgg56Lp");

constexpr NotificationOptions everyOption =
    NotificationOption::Alert | NotificationOption::Sound | NotificationOption::Badge;

/// The menu of an item that schedules a reminder has at least so many.
constexpr qsizetype fewestItems = 2;

NotificationContent contentFor(const DatedText& note)
{
    const QString text = QString::fromStdString(note.text);
    return {.title = localized("Velumora Reminder"),
            .subtitle = {},
            .body = filled(QStringLiteral("%@:%@\n"), {DateUtilities::mediumStyleFromDate(note.date), text}),
            .defaultSound = true,
            .defaultActionTitle = localized("Show Note"),
            .userInfo = *makeNoteRecord(note.date, note.text).dictionary()};
}

/// UTF-16 units of a note that a reminder's sheet shows: what is on the bus may be of any length, and nobody reads all
/// of that.
constexpr qsizetype longestShown = 20'000;

/// Midnight at the beginning of the note's day, in the zone of now.
CalendarNotificationTrigger triggerFor(const DatedText& note)
{
    const QDate day = QDate::fromJulianDay(DateUtilities::julianDayFromDate(note.date));
    return {
        .year = day.year(), .month = day.month(), .day = day.day(), .timeZone = DateEnvironment::nameOfZoneInForce()};
}

/// Says at once that the reminder is scheduled, and later when it turns out that it is not.
void scheduleReminder(const DatedText& note, QMainWindow& window, UserNotificationCenter& center)
{
    const QString scheduled =
        filled(localized("Reminder '%@'\r\rscheduled for date: %@"),
               {QString::fromStdString(note.text), DateUtilities::mediumStyleFromDate(note.date)});
    const NotificationRequest request{
        .identifier = reminderIdentifier, .content = contentFor(note), .trigger = triggerFor(note)};
    const QPointer<QMainWindow> stillThere(&window);
    center.addNotificationRequest(request, [stillThere, scheduled](const std::optional<QString>& error) {
        if (stillThere && error) {
            AppDelegate::doSheetAlert(*stillThere, scheduled,
                                      localized("Notification failed to schedule for the following:"), localized("OK"),
                                      QString());
        }
    });
    AppDelegate::doSheetAlert(
        window, localized("When the Notification Center reminder appears, click on it to open the note with Velumora"),
        scheduled, localized("OK"), QString());
}

void answerReminderRequest(AuthorizationStatus status, const DatedText& note, QMainWindow& window,
                           UserNotificationCenter& center)
{
    switch (status) {
    case AuthorizationStatus::NotDetermined:
        qInfo("Undetermined");
        break;
    case AuthorizationStatus::Denied:
        AppDelegate::doSheetAlert(
            window,
            filled(localized("Need User Permission to post a notification for %@\r\r%@\r\r"
                             "Recommend granting permission in System Preferences"),
                   {DateUtilities::shortStyleFromDate(note.date), QString::fromStdString(note.text)}),
            localized("Failed to post notification"), localized("OK"), QString());
        break;
    case AuthorizationStatus::Authorized:
        scheduleReminder(note, window, center);
        break;
    case AuthorizationStatus::Provisional:
        break;
    }
}

struct SheetTexts {
    QString error;
    QString title;
};

/// The sheet of a reminder that was clicked.
SheetTexts reminderOf(const DatedText& note)
{
    return {filled(QStringLiteral("%@\r%@"), {DateUtilities::mediumStyleFromDate(note.date),
                                              shortened(QString::fromStdString(note.text), longestShown)}),
            localized("Velumora Reminder")};
}

/// The same where there are no notes to show it among.
SheetTexts warningAbout(const DatedText& note)
{
    return {filled(QStringLiteral("%@\r%@\r\r%@"),
                   {localized("Velumora is attempting to respond to a Notification Center message but cannot."),
                    localized("The Notification Center message is for the following date and note:"),
                    reminderOf(note).error}),
            localized("Warning: No Notes Data Found in 'respondWithContent:'")};
}

} // namespace

void AppDelegate::menuNeedsUpdate(QMenu& menu)
{
    if (&menu == m_sendNotificationContextMenu) {
        updateSendNotificationContextMenu();
    } else if (&menu == m_importantDatesContextMenu) {
        updateImportantDatesContextMenu();
    }
}

void AppDelegate::updateSendNotificationContextMenu()
{
    const std::optional<DatedText> note = clickedRow(m_notesList).datedText();
    if (!note) {
        m_sendNotificationContextMenu->refuse(localized("Note not selected, please try again"));
        return;
    }
    m_host.notificationCenter.requestAuthorization(everyOption, [](bool) {});
    if (note->date <= DateEnvironment::now()) {
        m_sendNotificationContextMenu->refuse(
            localized("Reminders can be scheduled only for future dates. Try again."));
        return;
    }
    m_sendNotificationContextMenu->offer(m_formatters->longStyleFromDate(note->date));
}

void AppDelegate::respondToContextualMenuTab1(const QAction& sender)
{
    const auto* menu = qobject_cast<const QMenu*>(sender.parent());
    const std::optional<DatedText> note = clickedRow(m_notesList).datedText();
    if (!note || !menu || menu->actions().size() < fewestItems) {
        return;
    }
    UserNotificationCenter& center = m_host.notificationCenter; // outlives the window
    const QPointer<QMainWindow> window(&m_window);
    center.getNotificationSettings([window, &center, note = *note](AuthorizationStatus status) {
        if (window) {
            answerReminderRequest(status, note, *window, center);
        }
    });
}

NotificationOptions AppDelegate::willPresentNotification(const NotificationRequest& /*request*/)
{
    return everyOption;
}

void AppDelegate::didReceiveNotificationResponse(const NotificationResponse& response,
                                                 const std::function<void()>& completionHandler)
{
    if (response.action != NotificationResponse::Action::Dismiss) {
        respondWithContent(response.request.content);
    }
    completionHandler();
}

void AppDelegate::respondWithContent(const NotificationContent& content)
{
    if (const std::optional<DatedText> note = datedTextOf(Value(content.userInfo))) {
        const auto [error, title] = m_book.notes().isEmpty() ? warningAbout(*note) : reminderOf(*note);
        const auto turnToIt = [this, date = note->date, isThere = !m_book.notes().isEmpty()] {
            showPage(Page::MiniCalendar);
            if (isThere) {
                showOnlyNoteOf(date);
            }
        };
        ++m_clickedReminders;
        doSheetAlert(m_window, error, title, localized("OK"), QString(), turnToIt, [self = QPointer(this)](int) {
            if (self) {
                --self->m_clickedReminders;
            }
        });
    }
    m_host.notificationCenter.removeDeliveredNotifications({reminderIdentifier});
}

/// The list's one element is the list of that day's notes. A sheet that a click finds up is about the rows and the page
/// that are shown: this waits until it is answered.
void AppDelegate::showOnlyNoteOf(Date date)
{
    m_ui.notesTableView->endEditing();
    m_book.showOnly({Value(NoteQueries::copySpecificNoteFromArray(m_book.notes(), date))});
    const auto show = [this] {
        showRows();
        showNotesCount(visibleRowsForTV(*m_ui.notesTableView));
    };
    QMetaObject::invokeMethod(this, show, Qt::QueuedConnection);
}
