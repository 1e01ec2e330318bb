// SPDX-License-Identifier: MIT
#include "host/bus/ApplicationMessages.h"
#include "host/linux/SingleInstance.h"
#include "host/linux/TerminationSignals.h"
#include "support/PrivateBus.h"

#include <QDBusArgument>
#include <QDBusVirtualObject>
#include <gtest/gtest.h>

#include <csignal>
#include <functional>

namespace {

using namespace std::chrono_literals;

/// Another program that holds the name, and does with each call what a test says.
class StandInHolder : public QDBusVirtualObject {
    Q_OBJECT

public:
    using Behaviour = std::function<void(QDBusConnection& bus, const QDBusMessage& call)>;

    StandInHolder(const QDBusConnection& bus, Behaviour behaviour) : m_bus(bus), m_behave(std::move(behaviour))
    {
        m_bus.registerVirtualObject(ApplicationMessages::path(), this);
        m_bus.registerService(ApplicationMessages::service());
    }

    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection&) override
    {
        m_behave(m_bus, message);
        return true;
    }

private:
    QDBusConnection m_bus;
    Behaviour m_behave;
};

class SingleInstanceTest : public ::testing::Test {
protected:
    SingleInstanceTest() { signals.listen(); }

    SingleInstance::Start claim(std::chrono::milliseconds patience = 20s)
    {
        SingleInstance instance(bus.connection(QStringLiteral("second")), patience);
        return instance.claim(QStringLiteral("token"), signals);
    }

    QDBusConnection first() { return bus.connection(QStringLiteral("first")); }

    PrivateBus bus;
    TerminationSignals signals;
};

TEST_F(SingleInstanceTest, RunsWhereNoOtherDoes)
{
    EXPECT_EQ(claim(), SingleInstance::Start::First);
}

TEST_F(SingleInstanceTest, HandsOverToOneThatAnswers)
{
    QVariantMap data;
    const StandInHolder holder(first(), [&data](QDBusConnection& onBus, const QDBusMessage& call) {
        data = qdbus_cast<QVariantMap>(call.arguments().first());
        onBus.send(call.createReply());
    });
    EXPECT_EQ(claim(), SingleInstance::Start::HandedOver);
    EXPECT_EQ(data.value(QStringLiteral("activation-token")), QStringLiteral("token"));
}

TEST_F(SingleInstanceTest, GivesUpOnOneThatIsSilentForFiveSeconds)
{
    int calls = 0;
    const StandInHolder holder(first(), [&calls](QDBusConnection&, const QDBusMessage&) { ++calls; });
    EXPECT_EQ(claim(500ms), SingleInstance::Start::NoAnswer);
    EXPECT_GE(calls, 1);
    EXPECT_EQ(SingleInstance::usualPatience, 5s);
}

TEST_F(SingleInstanceTest, GivesUpOnOneThatAnswersNothingButErrors)
{
    const StandInHolder holder(first(), [](QDBusConnection& onBus, const QDBusMessage& call) {
        onBus.send(call.createErrorReply(QDBusError::UnknownMethod, QStringLiteral("no")));
    });
    EXPECT_EQ(claim(), SingleInstance::Start::NoAnswer);
}

TEST_F(SingleInstanceTest, TakesThePlaceOfOneThatEndsWithoutAnAnswer)
{
    const StandInHolder holder(first(), [](QDBusConnection& onBus, const QDBusMessage& call) {
        onBus.unregisterService(ApplicationMessages::service());
        onBus.send(call.createErrorReply(QDBusError::ServiceUnknown, QStringLiteral("ending")));
    });
    EXPECT_EQ(claim(), SingleInstance::Start::First);
}

TEST_F(SingleInstanceTest, HearsThatItIsToEndWhileItWaits)
{
    const StandInHolder holder(first(), [](QDBusConnection&, const QDBusMessage&) { std::raise(SIGTERM); });
    EXPECT_EQ(claim(), SingleInstance::Start::Ended);
}

} // namespace

#include "single_instance_test.moc"
