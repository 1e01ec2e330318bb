// SPDX-License-Identifier: MIT
// What others on the bus can do to the program: nothing that lasts.
#include "host/bus/BusNotificationCenter.h"
#include "host/bus/StartedService.h"
#include "host/linux/DesktopGlobalDefaults.h"
#include "reminders/NotificationRequestFormat.h"
#include "support/PrivateBus.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>

namespace {

/// Once everything that was sent to `connection` so far has come.
void takeIn(QDBusConnection connection)
{
    const QString bus = QStringLiteral("org.freedesktop.DBus");
    connection.call(
        QDBusMessage::createMethodCall(bus, QStringLiteral("/org/freedesktop/DBus"), bus, QStringLiteral("GetId")));
}

TEST(DesktopGlobalDefaults, AFloodOfChangesIsToldOfTwice)
{
    PrivateBus bus;
    QDBusConnection own = bus.connection(QStringLiteral("own"));
    QDBusConnection anybody = bus.connection(QStringLiteral("anybody"));
    const DesktopGlobalDefaults defaults(own);
    QSignalSpy told(&defaults, &GlobalDefaults::didChange);
    QElapsedTimer clock;
    QList<qint64> moments; // milliseconds
    QObject::connect(&defaults, &GlobalDefaults::didChange, [&] { moments << clock.elapsed(); });
    clock.start();
    takeIn(own);
    constexpr unsigned dark = 1;
    constexpr unsigned light = 2;
    for (int i = 0; i < 1000; ++i) {
        for (const unsigned scheme : {light, dark}) {
            QDBusMessage signal = QDBusMessage::createSignal(QStringLiteral("/org/freedesktop/portal/desktop"),
                                                             QStringLiteral("org.freedesktop.portal.Settings"),
                                                             QStringLiteral("SettingChanged"));
            signal << QStringLiteral("org.freedesktop.appearance") << QStringLiteral("color-scheme")
                   << QVariant::fromValue(QDBusVariant(scheme));
            anybody.send(signal);
        }
    }
    takeIn(anybody);
    takeIn(own);
    ASSERT_TRUE(QTest::qWaitFor([&told] { return told.count() >= 2; }, PrivateBus::patience));
    QTest::qWait(3 * static_cast<int>(DesktopGlobalDefaults::pause.count()));
    ASSERT_EQ(told.count(), 2) << "the first at once, the others together";
    constexpr qint64 least = DesktopGlobalDefaults::pause.count() * 9 / 10; // timers come a little early
    EXPECT_GE(moments.at(1) - moments.at(0), least);
    EXPECT_EQ(defaults.stringForKey(QStringLiteral("AppleInterfaceStyle")), QStringLiteral("Dark"));
}

TEST(StartedService, OneThatComesAndGoesIsStartedAFewTimesOnly)
{
    const QString name = QStringLiteral("app.velumora.Fickle");
    const QTemporaryDir folder;
    const QString log = folder.filePath(QStringLiteral("starts"));
    QFile script(folder.filePath(QStringLiteral("fickle")));
    ASSERT_TRUE(script.open(QIODevice::WriteOnly));
    script.write("#!/bin/sh\necho started >> " + log.toUtf8() + "\n");
    script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    script.close();
    const auto starts = [&log] {
        QFile file(log);
        return file.open(QIODevice::ReadOnly) ? file.readAll().count('\n') : 0;
    };

    PrivateBus bus;
    QDBusConnection fickle = bus.connection(QStringLiteral("fickle"));
    StartedService service(bus.connection(QStringLiteral("own")), name,
                           QDir(QCoreApplication::applicationDirPath()).relativeFilePath(script.fileName()));
    std::optional<QDBusMessage> answer;
    service.call(QDBusMessage::createMethodCall(name, QStringLiteral("/"), name, QStringLiteral("Anything")),
                 [&answer](const QDBusMessage& reply) { answer = reply; });
    qsizetype seen = 0;
    ASSERT_TRUE(QTest::qWaitFor(
        [&] {
            if (starts() > seen) {
                seen = starts();
                fickle.registerService(name);
                fickle.unregisterService(name);
            }
            return answer.has_value();
        },
        PrivateBus::patience));
    EXPECT_EQ(answer->type(), QDBusMessage::ErrorMessage);
    EXPECT_EQ(starts(), StartedService::mostStarts);
}

TEST(BusNotificationCenter, ANoteThatIsTooLongForTheBusIsRefusedWithoutIt)
{
    BusNotificationCenter center;
    NotificationRequest request;
    request.identifier = QStringLiteral("long");
    request.content.body = QString(NotificationRequestFormat::largestRequest, u'x');
    std::optional<QString> error;
    bool isAnswered = false;
    center.addNotificationRequest(request, [&](const std::optional<QString>& told) {
        isAnswered = true;
        error = told;
    });
    EXPECT_FALSE(isAnswered) << "before the call returned";
    ASSERT_TRUE(QTest::qWaitFor([&isAnswered] { return isAnswered; }, PrivateBus::patience));
    EXPECT_EQ(error, QStringLiteral("The note is too long."));
}

} // namespace
