// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"
#include "dates/DateUtilities.h"
#include "notes/NoteQueries.h"
#include "table/TableView.h"
#include "text/Localized.h"
#include "text/TextCutting.h"
#include "ui_MainWindow.h"

#include <QAction>
#include <QDate>
#include <QMainWindow>
#include <QMenu>
#include <QPointer>

namespace {

/// Every reminder's: a new one takes the place of the one that is pending.
const QString reminderIdentifier = QStringLiteral("VelumoraZNYgg56Lp");

constexpr NotificationOptions everyOption =
    NotificationOption::Alert | NotificationOption::Sound | NotificationOption::Badge;

/// What the items of the notes' menu are for.
constexpr qsizetype informationItem = 0;
constexpr qsizetype reminderItem = 1;
constexpr qsizetype notesItemCount = 2;

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

} // namespace

void AppDelegate::makeSendNotificationContextMenu()
{
    m_sendNotificationContextMenu = new QMenu(&m_window);
    m_sendNotificationContextMenu->setObjectName(QStringLiteral("sendNotificationContextMenu"));
    for (qsizetype item = 0; item < notesItemCount; ++item) {
        m_sendNotificationContextMenu->addAction(QString());
    }
    const QAction* reminder = m_sendNotificationContextMenu->actions().at(reminderItem);
    connect(reminder, &QAction::triggered, this, [this, reminder] { respondToContextualMenuTab1(*reminder); });
    connect(m_sendNotificationContextMenu, &QMenu::aboutToShow, this,
            [this] { menuNeedsUpdate(*m_sendNotificationContextMenu); });
    m_ui.notesTableView->setMenu(m_sendNotificationContextMenu);
}

void AppDelegate::menuNeedsUpdate(QMenu& menu)
{
    if (&menu == m_sendNotificationContextMenu) {
        updateSendNotificationContextMenu();
    } else if (&menu == m_importantDatesContextMenu) {
        updateImportantDatesContextMenu();
    }
}

/// The note of the row that was clicked; nullopt when it was none.
std::optional<DatedText> AppDelegate::clickedNote() const
{
    return m_book.row(ListKind::Notes, m_ui.notesTableView->clickedRow()).datedText();
}

void AppDelegate::updateSendNotificationContextMenu()
{
    QAction& information = *m_sendNotificationContextMenu->actions().at(informationItem);
    QAction& reminder = *m_sendNotificationContextMenu->actions().at(reminderItem);
    const auto offer = [&](const QString& informationTitle, const QString& reminderTitle) {
        const bool possible = !reminderTitle.isEmpty();
        information.setText(informationTitle);
        information.setEnabled(!possible);
        reminder.setText(reminderTitle);
        reminder.setEnabled(possible);
        reminder.setVisible(possible);
    };
    const std::optional<DatedText> note = clickedNote();
    if (!note) {
        offer(localized("Note not selected, please try again"), QString());
        return;
    }
    m_host.notificationCenter.requestAuthorization(everyOption, [](bool) {});
    if (note->date <= DateEnvironment::now()) {
        offer(localized("Reminders can be scheduled only for future dates. Try again."), QString());
        return;
    }
    m_sharedStyleFormatter->setDateStyle(DateFormatter::Style::Long);
    const QString date = m_sharedStyleFormatter->stringFromDate(note->date);
    offer(filled(localized("%@ has been selected. Choose an option below to continue."), {date}),
          filled(localized("Remind me about this note via the System Notification Center on: %@"), {date}));
}

void AppDelegate::respondToContextualMenuTab1(const QAction& sender)
{
    const auto* menu = qobject_cast<const QMenu*>(sender.parent());
    const std::optional<DatedText> note = clickedNote();
    if (!note || !menu || menu->actions().size() < notesItemCount) {
        return;
    }
    const QPointer<AppDelegate> self(this);
    m_host.notificationCenter.getNotificationSettings([self, note = *note](AuthorizationStatus status) {
        if (self) {
            self->answerReminderRequest(status, note);
        }
    });
}

void AppDelegate::answerReminderRequest(AuthorizationStatus status, const DatedText& note)
{
    switch (status) {
    case AuthorizationStatus::NotDetermined:
        qInfo("Undetermined");
        break;
    case AuthorizationStatus::Denied:
        doSheetAlert(m_window,
                     filled(localized("Need User Permission to post a notification for %@\r\r%@\r\r"
                                      "Recommend granting permission in System Preferences"),
                            {DateUtilities::shortStyleFromDate(note.date), QString::fromStdString(note.text)}),
                     localized("Failed to post notification"), localized("OK"), QString());
        break;
    case AuthorizationStatus::Authorized:
        scheduleReminder(note);
        break;
    case AuthorizationStatus::Provisional:
        break;
    }
}

void AppDelegate::scheduleReminder(const DatedText& note)
{
    const QString scheduled =
        filled(localized("Reminder '%@'\r\rscheduled for date: %@"),
               {QString::fromStdString(note.text), DateUtilities::mediumStyleFromDate(note.date)});
    const NotificationRequest request{
        .identifier = reminderIdentifier, .content = contentFor(note), .trigger = triggerFor(note)};
    const QPointer<AppDelegate> self(this);
    m_host.notificationCenter.addNotificationRequest(request, [self, scheduled](const std::optional<QString>& error) {
        if (self && error) {
            doSheetAlert(self->m_window, scheduled, localized("Notification failed to schedule for the following:"),
                         localized("OK"), QString());
        }
    });
    doSheetAlert(m_window,
                 localized("When the Notification Center reminder appears, click on it to open the note with Velumora"),
                 scheduled, localized("OK"), QString());
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
    const std::optional<DatedText> note = datedTextOf(Value(content.userInfo));
    if (note) {
        const QString date = DateUtilities::mediumStyleFromDate(note->date);
        const QString text = shortened(QString::fromStdString(note->text), longestShown);
        if (!m_book.notes().isEmpty()) {
            showReminder(filled(QStringLiteral("%@\r%@"), {date, text}), localized("Velumora Reminder"),
                         [this, date = note->date] { showOnlyNoteOf(date); });
        } else {
            showReminder(
                filled(QStringLiteral("%@\r%@\r\r%@\r%@"),
                       {localized("Velumora is attempting to respond to a Notification Center message but cannot."),
                        localized("The Notification Center message is for the following date and note:"), date, text}),
                localized("Warning: No Notes Data Found in 'respondWithContent:'"),
                [this] { showPage(Page::MiniCalendar); });
        }
    }
    m_host.notificationCenter.removeDeliveredNotifications({reminderIdentifier});
}

void AppDelegate::showReminder(const QString& errorString, const QString& titleString, Alert::Preparation preparation)
{
    ++m_clickedReminders;
    doSheetAlert(m_window, errorString, titleString, localized("OK"), QString(), std::move(preparation),
                 [self = QPointer(this)](int) {
                     if (self) {
                         --self->m_clickedReminders;
                     }
                 });
}

/// The list's one element is the list of that day's notes. A sheet that a click finds up is about the rows and the page
/// that are shown: this waits until it is answered.
void AppDelegate::showOnlyNoteOf(Date date)
{
    showPage(Page::MiniCalendar);
    m_ui.notesTableView->endEditing();
    m_book.showOnly({Value(NoteQueries::copySpecificNoteFromArray(m_book.notes(), date))});
    const auto show = [this] {
        showRows();
        showNotesCount(visibleRowsForTV(*m_ui.notesTableView));
    };
    QMetaObject::invokeMethod(this, show, Qt::QueuedConnection);
}
