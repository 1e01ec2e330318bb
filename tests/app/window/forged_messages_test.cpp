// SPDX-License-Identifier: MIT
#include "host/bus/ApplicationMessages.h"
#include "host/bus/BusNotificationCenter.h"
#include "host/linux/SingleInstance.h"
#include "host/linux/TerminationSignals.h"
#include "reminders/NotificationRequestFormat.h"
#include "support/AppFixture.h"
#include "support/LogGuard.h"
#include "support/PrivateBus.h"

#include <QDBusPendingCall>
#include <QSignalSpy>
#include <QTest>

namespace {

constexpr int flood = 1000;

qsizetype warningsOfTheProgram(const LogGuard& log)
{
    return log.lines().filter(QStringLiteral("velumora: ")).size();
}

/// The program on a bus on which anybody may call it.
class ForgedMessagesTest : public AppFixture {
protected:
    ForgedMessagesTest()
    {
        signals.listen();
        putNotes({note(2024, 3, 14, "a"), note(2024, 3, 16, "b")});
        start();
        center.setDelegate(*app);
        instance.setReminderHandler([this](const QByteArray& request, const std::function<void(bool)>& done) {
            center.reminderClicked(request, done);
        });
        EXPECT_EQ(instance.claim({}, signals), SingleInstance::Start::First);
    }

    /// A request for a reminder of that note.
    static QByteArray reminderOf(const Value& note)
    {
        NotificationRequest request{.identifier = QStringLiteral("forged"),
                                    .content = {},
                                    .trigger = {.year = 2024, .month = 3, .day = 16, .timeZone = "UTC"}};
        request.content.userInfo = *note.dictionary();
        return NotificationRequestFormat::bytesOf(request).value();
    }

    QDBusMessage click(const QByteArray& request) const { return ApplicationMessages::showReminder(request, {}); }

    /// Somebody sends the messages, all of which have come when this returns, and none of which was heard yet.
    QList<QDBusPendingCall> sent(const QList<QDBusMessage>& messages)
    {
        QDBusConnection other = bus.connection(QStringLiteral("other"));
        QList<QDBusPendingCall> calls;
        for (const QDBusMessage& message : messages) {
            calls.append(other.asyncCall(message));
        }
        for (QDBusConnection connection : {other, own}) { // each has its messages in their order
            const QString theBus = QStringLiteral("org.freedesktop.DBus");
            connection.call(QDBusMessage::createMethodCall(theBus, QStringLiteral("/org/freedesktop/DBus"), theBus,
                                                           QStringLiteral("GetId")));
        }
        return calls;
    }

    /// How many of the calls went well, once all are answered.
    static qsizetype successes(const QList<QDBusPendingCall>& calls)
    {
        const auto isFinished = [](const QDBusPendingCall& call) { return call.isFinished(); };
        EXPECT_TRUE(QTest::qWaitFor([&] { return std::ranges::all_of(calls, isFinished); }, 20'000));
        return std::ranges::count_if(calls, [](const QDBusPendingCall& call) { return !call.isError(); });
    }

    qsizetype sheets() const { return window->findChildren<Alert*>().size(); }

    PrivateBus bus;
    TerminationSignals signals;
    QDBusConnection own = bus.connection(QStringLiteral("own"));
    SingleInstance instance{own};
    BusNotificationCenter center;
};

TEST_F(ForgedMessagesTest, OfAThousandRemindersThreeWaitAndOneLineIsLogged)
{
    const LogGuard log;
    const QByteArray request = reminderOf(note(2024, 3, 16, "forged"));
    EXPECT_EQ(successes(sent(QList<QDBusMessage>(flood, click(request)))), 3);
    EXPECT_EQ(sheets(), 3);
    EXPECT_EQ(warningsOfTheProgram(log), 1);

    answer(Alert::firstButtonReturn);
    EXPECT_EQ(successes(sent({click(request), click(request)})), 1) << "one has been read, so one may come";
    EXPECT_EQ(sheets(), 3);
    EXPECT_EQ(warningsOfTheProgram(log), 2) << "another burst";
    for (int sheet = 0; sheet < 3; ++sheet) {
        answer(Alert::firstButtonReturn);
    }
    EXPECT_FALSE(alert());
    EXPECT_EQ(successes(sent({click(request)})), 1);
}

TEST_F(ForgedMessagesTest, WithoutNotesThreeWaitToo)
{
    std::filesystem::remove(notesFile());
    start();
    center.setDelegate(*app);
    EXPECT_EQ(successes(sent(QList<QDBusMessage>(20, click(reminderOf(note(2024, 3, 16, "forged")))))), 3);
    EXPECT_EQ(sheets(), 3);
}

TEST_F(ForgedMessagesTest, WhatIsNoReminderTakesNoPlace)
{
    NotificationRequest empty{
        .identifier = {}, .content = {}, .trigger = {.year = 1, .month = 1, .day = 1, .timeZone = "UTC"}};
    const QByteArray withoutNote = NotificationRequestFormat::bytesOf(empty).value();
    EXPECT_EQ(successes(sent(QList<QDBusMessage>(20, click(withoutNote)))), 20);
    EXPECT_EQ(sheets(), 0);
    QDBusMessage wrongType = click({});
    wrongType.setArguments(
        {ApplicationMessages::showReminderAction(), QVariant(QVariantList{QStringLiteral("text")}), QVariantMap()});
    QDBusMessage wrongCount = click({});
    wrongCount.setArguments({ApplicationMessages::showReminderAction(), QVariant(QVariantList{}), QVariantMap()});
    QDBusMessage wrongAction = click({});
    wrongAction.setArguments({QString(1 << 20, u'x'), QVariant(QVariantList{1}), QVariantMap()});
    EXPECT_EQ(successes(sent({wrongType, wrongCount, wrongAction, click({}), click("<plist><array>")})), 0);
    EXPECT_EQ(sheets(), 0);
}

TEST_F(ForgedMessagesTest, AReminderAboveTheLimitIsRefusedUnread)
{
    QByteArray request = reminderOf(note(2024, 3, 16, "forged"));
    request.append(NotificationRequestFormat::largestRequest - request.size(), ' ');
    EXPECT_EQ(successes(sent({click(request)})), 1);
    EXPECT_EQ(successes(sent({click(request + ' ')})), 0);
}

TEST_F(ForgedMessagesTest, ALongNoteIsShortenedBetweenCharacters)
{
    std::string text = "x"; // so that the limit falls between the halves of a character
    while (text.size() < (4U << 20)) {
        text += "📅";
    }
    EXPECT_EQ(successes(sent({click(reminderOf(note(2024, 3, 16, text)))})), 1);
    ASSERT_TRUE(alert());
    const QString shown = alert()->informativeText();
    EXPECT_LT(shown.size(), 20'100);
    EXPECT_TRUE(shown.endsWith(QStringLiteral("📅…")));
    EXPECT_TRUE(shown.isValidUtf16());
}

TEST_F(ForgedMessagesTest, AThousandCallsToComeForwardAreOne)
{
    const QSignalSpy activated(&instance, &SingleInstance::activated);
    QList<QDBusMessage> messages;
    for (int number = 0; number < flood; ++number) {
        messages.append(ApplicationMessages::activate(QString::number(number)));
    }
    EXPECT_EQ(successes(sent(messages)), flood) << "each start is told that it may end";
    runQueued(); // the window comes forward once all of them were heard
    ASSERT_EQ(activated.count(), 1);
    EXPECT_EQ(activated.first().first(), QString::number(flood - 1));
    EXPECT_EQ(successes(sent({ApplicationMessages::activate(QString(1 << 20, u't'))})), 1);
    runQueued();
    ASSERT_EQ(activated.count(), 2);
    EXPECT_EQ(activated.last().first(), QString()) << "no desktop gives such a token";
}

} // namespace
