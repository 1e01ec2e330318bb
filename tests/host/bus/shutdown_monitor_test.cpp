// SPDX-License-Identifier: MIT
// The shutdown monitor against a stand-in for the login manager on a bus of the test's own.
#include "host/bus/LogindShutdownMonitor.h"
#include "support/PrivateBus.h"
#include "support/StandInLogind.h"

#include <QCoreApplication>
#include <QDBusPendingCallWatcher>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

namespace {

class ShutdownMonitorTest : public ::testing::Test {
protected:
    static void waitFor(const std::function<bool()>& condition)
    {
        ASSERT_TRUE(QTest::qWaitFor(condition, PrivateBus::patience));
    }

    /// Until the lock has arrived, too: the call for it is a child of the monitor.
    void waitForLock()
    {
        waitFor([this] { return logind.isHeldUp() && monitor.findChildren<QDBusPendingCallWatcher*>().isEmpty(); });
    }

    void listen()
    {
        monitor.listen(bus.connection(QStringLiteral("program")), QStringLiteral("Notes are being saved"));
    }

    /// The bus keeps the order: when its own answers to the sender and to the program are here, the program has all.
    static void takeInAllFrom(const QDBusConnection& sender)
    {
        const QString service = QStringLiteral("org.freedesktop.DBus");
        for (QDBusConnection each : {sender, QDBusConnection(QStringLiteral("program"))}) {
            each.call(QDBusMessage::createMethodCall(service, QStringLiteral("/org/freedesktop/DBus"), service,
                                                     QStringLiteral("GetId")));
        }
        QCoreApplication::processEvents();
    }

    PrivateBus bus;
    StandInLogind logind{bus.connection(QStringLiteral("service"))};
    LogindShutdownMonitor monitor;
    QSignalSpy told{&monitor, &ShutdownMonitor::machineWillShutDown};
};

TEST_F(ShutdownMonitorTest, HoldsAShutdownUpUntilEverybodyHasHeardOfIt)
{
    bool heldUpWhenTold = false;
    QObject::connect(&monitor, &ShutdownMonitor::machineWillShutDown, [&] { heldUpWhenTold = logind.isHeldUp(); });
    listen();
    waitForLock();
    ASSERT_EQ(logind.locks.size(), 1);
    EXPECT_EQ(logind.locks.first().first(), QStringLiteral("shutdown"));
    EXPECT_EQ(logind.locks.first().sliced(2),
              (QStringList{QStringLiteral("Notes are being saved"), QStringLiteral("delay")}));
    logind.tell(true);
    waitFor([this] { return told.count() == 1; });
    waitFor([this] { return !logind.isHeldUp(); });
    EXPECT_TRUE(heldUpWhenTold);
}

TEST_F(ShutdownMonitorTest, HoldsTheNextOneUpAfterOneWasCalledOff)
{
    listen();
    waitForLock();
    logind.tell(true);
    waitFor([this] { return told.count() == 1; });
    logind.tell(false);
    waitForLock();
    EXPECT_EQ(told.count(), 1);
    logind.tell(true);
    waitFor([this] { return told.count() == 2; });
}

TEST_F(ShutdownMonitorTest, HearsTheLoginManagerAlone)
{
    listen();
    waitForLock();
    QDBusConnection anybody = bus.connection(QStringLiteral("anybody"));
    const auto forge = [&anybody](bool active) {
        QDBusMessage signal = QDBusMessage::createSignal(QStringLiteral("/org/freedesktop/login1"),
                                                         QStringLiteral("org.freedesktop.login1.Manager"),
                                                         QStringLiteral("PrepareForShutdown"));
        signal << active;
        anybody.send(signal);
    };
    forge(true);
    for (int i = 0; i < 1000; ++i) {
        forge(false);
    }
    takeInAllFrom(anybody);
    EXPECT_EQ(told.count(), 0);
    EXPECT_TRUE(logind.isHeldUp());
    logind.tell(true);
    waitFor([this] { return told.count() > 0; });
    EXPECT_EQ(told.count(), 1);
    EXPECT_EQ(logind.locks.size(), 1);
}

TEST_F(ShutdownMonitorTest, HearsALoginManagerThatGivesNoLock)
{
    logind.isSilent = true;
    listen();
    waitFor([this] { return !logind.locks.isEmpty(); });
    logind.tell(true);
    waitFor([this] { return told.count() == 1; });
}

TEST_F(ShutdownMonitorTest, HoldsAShutdownUpAgainOnceTheLoginManagerBeganAnew)
{
    listen();
    waitForLock();
    QDBusConnection(QStringLiteral("service")).unregisterService(QStringLiteral("org.freedesktop.login1"));
    StandInLogind next(bus.connection(QStringLiteral("next service")));
    waitFor([this, &next] { return next.isHeldUp() && monitor.findChildren<QDBusPendingCallWatcher*>().isEmpty(); });
    next.tell(true);
    waitFor([this] { return told.count() == 1; });
}

TEST(ShutdownMonitor, WithoutABusNothingIsHeardOrWaitedFor)
{
    LogindShutdownMonitor monitor;
    monitor.listen(QDBusConnection(QStringLiteral("no such connection")), QString());
}

} // namespace
