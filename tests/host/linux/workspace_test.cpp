// SPDX-License-Identifier: MIT
#include "host/linux/DesktopWorkspace.h"
#include "support/PrivateBus.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusUnixFileDescriptor>
#include <QDBusVirtualObject>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>

#include <csignal>
#include <memory>
#include <optional>

#include <sys/stat.h>

namespace {

const QString portalName = QStringLiteral("org.freedesktop.portal.Desktop");
const QString fileManagerName = QStringLiteral("org.freedesktop.FileManager1");
const QUrl page(QStringLiteral("https://velumora.invalid/a%20page?x=1#here"));

QString pathOf(int descriptor)
{
    return QFile::symLinkTarget(QStringLiteral("/proc/self/fd/%1").arg(descriptor));
}

/// The desktop's portal as a test wants it. It lives in the test's thread, so it can only answer while the program does
/// not wait for it.
class StandInPortal : public QDBusVirtualObject {
    Q_OBJECT

public:
    enum class Answer { AtOnce, BeforeTheHandle, Later, Refusal };

    explicit StandInPortal(const QDBusConnection& connection, Answer answer = Answer::AtOnce)
        : m_connection(connection), m_answer(answer)
    {
        m_connection.registerVirtualObject(QStringLiteral("/org/freedesktop/portal"), this, QDBusConnection::SubPath);
        m_connection.registerService(portalName);
    }

    QStringList calls; ///< method and what it was to open, for example "OpenURI https://velumora.invalid/"
    uint response = 0;
    std::optional<QString> ownHandle; ///< instead of the one that the caller expects

    void respond()
    {
        QDBusMessage signal = QDBusMessage::createTargetedSignal(
            m_caller, m_handle, QStringLiteral("org.freedesktop.portal.Request"), QStringLiteral("Response"));
        signal << response << QVariantMap();
        m_connection.send(signal);
    }

    void leave() { m_connection.unregisterService(portalName); }

    QString introspect(const QString&) const override { return {}; }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection&) override
    {
        if (message.member() != QLatin1String("OpenURI") && message.member() != QLatin1String("OpenFile")) {
            return false;
        }
        const QVariant what = message.arguments().at(1);
        calls << message.member() + u' ' +
                     (what.canConvert<QDBusUnixFileDescriptor>()
                          ? pathOf(what.value<QDBusUnixFileDescriptor>().fileDescriptor())
                          : what.toString());
        if (m_answer == Answer::Refusal) {
            m_connection.send(message.createErrorReply(QStringLiteral("org.freedesktop.portal.Error.NotAllowed"),
                                                       QStringLiteral("not here")));
            return true;
        }
        const QVariantMap options = qdbus_cast<QVariantMap>(message.arguments().at(2));
        m_caller = message.service();
        m_handle = ownHandle.value_or(
            QStringLiteral("/org/freedesktop/portal/desktop/request/%1/%2")
                .arg(m_caller.sliced(1).replace(u'.', u'_'), options.value(QStringLiteral("handle_token")).toString()));
        if (m_answer == Answer::BeforeTheHandle) {
            respond();
        }
        m_connection.send(message.createReply(QVariant::fromValue(QDBusObjectPath(m_handle))));
        if (m_answer == Answer::AtOnce) {
            respond();
        }
        return true;
    }

private:
    QDBusConnection m_connection;
    Answer m_answer;
    QString m_caller;
    QString m_handle;
};

/// The desktop's file manager; one that is broken answers every call with an error.
class StandInFileManager : public QDBusVirtualObject {
    Q_OBJECT

public:
    explicit StandInFileManager(const QDBusConnection& connection) : m_connection(connection)
    {
        m_connection.registerVirtualObject(QStringLiteral("/org/freedesktop/FileManager1"), this);
        m_connection.registerService(fileManagerName);
    }

    bool broken = false;
    QStringList shown;

    QString introspect(const QString&) const override { return {}; }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection&) override
    {
        shown << message.member() + u' ' + message.arguments().at(0).toStringList().join(u' ');
        m_connection.send(broken ? message.createErrorReply(QDBusError::Failed, QStringLiteral("not today"))
                                 : message.createReply());
        return true;
    }

private:
    QDBusConnection m_connection;
};

/// A desktop with a bus of its own and, on the search path, nothing but the opener that a test puts there.
class WorkspaceTest : public ::testing::Test {
protected:
    WorkspaceTest() { qputenv("PATH", QFile::encodeName(bin())); }
    ~WorkspaceTest() override { qputenv("PATH", m_path); }

    QString bin() const { return m_folder.path(); }
    QString record() const { return m_folder.filePath(QStringLiteral("opened")); }

    /// An opener that writes down what it is to open and goes on with `commands`.
    void putOpener(const char* commands) const
    {
        QFile script(m_folder.filePath(QStringLiteral("xdg-open")));
        ASSERT_TRUE(script.open(QIODevice::WriteOnly));
        script.write("#!/bin/sh\nPATH=/usr/bin:/bin\nprintf '%s\\n' \"$*\" >>'" + QFile::encodeName(record()) + "'\n" +
                     commands + '\n');
        script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    QStringList openedByOpener() const
    {
        QFile file(record());
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts)
                                              : QStringList();
    }

    Workspace::Completion intoOutcome()
    {
        return [this](bool opened) {
            EXPECT_FALSE(outcome) << "told twice";
            outcome = opened;
        };
    }

    void open(const QUrl& url) { workspace->openUrl(url, intoOutcome()); }
    bool isDecided() const
    {
        return QTest::qWaitFor([this] { return outcome.has_value(); }, 20'000);
    }

    PrivateBus bus;
    std::unique_ptr<DesktopWorkspace> workspace =
        std::make_unique<DesktopWorkspace>(bus.connection(QStringLiteral("workspace")));
    std::optional<bool> outcome;

private:
    const QByteArray m_path = qgetenv("PATH");
    QTemporaryDir m_folder;
};

TEST_F(WorkspaceTest, ThePortalOpensAPageAndTheOpenerIsLeftAlone)
{
    putOpener("exit 0");
    for (const auto answer : {StandInPortal::Answer::AtOnce, StandInPortal::Answer::BeforeTheHandle}) {
        outcome.reset();
        StandInPortal portal(bus.connection(QStringLiteral("portal %1").arg(static_cast<int>(answer))), answer);
        open(page);
        EXPECT_FALSE(outcome) << "it is not waited for";
        ASSERT_TRUE(isDecided());
        EXPECT_TRUE(*outcome);
        EXPECT_EQ(portal.calls, QStringList{QStringLiteral("OpenURI https://velumora.invalid/a%20page?x=1#here")});
        EXPECT_EQ(openedByOpener(), QStringList());
        portal.leave();
    }
}

TEST_F(WorkspaceTest, APortalThatChoosesTheHandleItselfIsHeardToo)
{
    StandInPortal portal(bus.connection(QStringLiteral("portal")), StandInPortal::Answer::Later);
    portal.ownHandle = QStringLiteral("/org/freedesktop/portal/desktop/request/own/7");
    open(page);
    ASSERT_TRUE(QTest::qWaitFor([&] { return portal.calls.size() == 1; }));
    while (!outcome) { // told again: the caller listens from when it knows the handle
        portal.respond();
        QTest::qWait(1);
    }
    EXPECT_TRUE(*outcome);
}

TEST_F(WorkspaceTest, AUserWhoChoosesNoProgramHasDecided)
{
    putOpener("exit 0");
    StandInPortal portal(bus.connection(QStringLiteral("portal")));
    portal.response = 1;
    open(page);
    ASSERT_TRUE(isDecided());
    EXPECT_TRUE(*outcome);
    EXPECT_EQ(openedByOpener(), QStringList());
}

TEST_F(WorkspaceTest, WhatThePortalCannotOpenGoesToTheOpener)
{
    StandInPortal portal(bus.connection(QStringLiteral("portal")));
    portal.response = 2;
    struct {
        const char* opener;
        bool opened;
    } const rows[] = {{"exit 0", true}, {"exit 3", false}};
    for (const auto& row : rows) {
        putOpener(row.opener);
        outcome.reset();
        open(page);
        ASSERT_TRUE(isDecided());
        EXPECT_EQ(*outcome, row.opened) << row.opener;
    }
    EXPECT_EQ(openedByOpener().size(), 2);
}

TEST_F(WorkspaceTest, APortalThatMayNotOpenIsNoPortal)
{
    putOpener("exit 0");
    const StandInPortal portal(bus.connection(QStringLiteral("portal")), StandInPortal::Answer::Refusal);
    open(page);
    ASSERT_TRUE(isDecided());
    EXPECT_TRUE(*outcome);
    EXPECT_EQ(openedByOpener().size(), 1);
}

TEST_F(WorkspaceTest, APortalThatGoesAwayIsNotWaitedFor)
{
    putOpener("exit 0");
    StandInPortal portal(bus.connection(QStringLiteral("portal")), StandInPortal::Answer::Later);
    open(page);
    ASSERT_TRUE(QTest::qWaitFor([&] { return portal.calls.size() == 1; }));
    portal.leave();
    ASSERT_TRUE(isDecided());
    EXPECT_TRUE(*outcome);
    EXPECT_EQ(openedByOpener().size(), 1);
}

TEST_F(WorkspaceTest, APortalMayTakeItsTime)
{
    putOpener("exit 0");
    StandInPortal portal(bus.connection(QStringLiteral("portal")), StandInPortal::Answer::Later);
    open(page);
    ASSERT_TRUE(QTest::qWaitFor([&] { return portal.calls.size() == 1; }));
    QTest::qWait(50); // the call itself is answered
    EXPECT_FALSE(outcome);
    portal.respond();
    ASSERT_TRUE(isDecided());
    EXPECT_TRUE(*outcome);
    EXPECT_EQ(openedByOpener(), QStringList());
}

TEST_F(WorkspaceTest, NobodyIsToldOnceItIsGone)
{
    putOpener("exit 0");
    StandInPortal portal(bus.connection(QStringLiteral("portal")), StandInPortal::Answer::Later);
    open(page);
    ASSERT_TRUE(QTest::qWaitFor([&] { return portal.calls.size() == 1; }));
    workspace.reset();
    portal.respond();
    portal.leave();
    QTest::qWait(50);
    EXPECT_FALSE(outcome);
    EXPECT_EQ(openedByOpener(), QStringList());
}

TEST_F(WorkspaceTest, WithoutAPortalTheOpenersExitTellsWhetherItOpened)
{
    struct {
        const char* opener;
        bool opened;
    } const rows[] = {{"exit 0", true}, {"exit 1", false}, {"exit 3", false}, {"kill -9 $$", false}};
    for (const auto& row : rows) {
        putOpener(row.opener);
        outcome.reset();
        open(page);
        EXPECT_FALSE(outcome) << "it is not waited for";
        ASSERT_TRUE(isDecided());
        EXPECT_EQ(*outcome, row.opened) << row.opener;
        EXPECT_EQ(openedByOpener().last(), page.toString(QUrl::FullyEncoded));
    }
}

TEST_F(WorkspaceTest, AMissingOpenerOpensNothing)
{
    open(page);
    ASSERT_TRUE(isDecided());
    EXPECT_FALSE(*outcome);
}

TEST_F(WorkspaceTest, WithoutABusTheOpenerOpens)
{
    putOpener("exit 0");
    workspace = std::make_unique<DesktopWorkspace>(QDBusConnection(QStringLiteral("there is none")));
    open(page);
    ASSERT_TRUE(isDecided());
    EXPECT_TRUE(*outcome);
    outcome.reset();
    workspace->showFolder(bin().toStdString(), intoOutcome());
    ASSERT_TRUE(isDecided());
    EXPECT_TRUE(*outcome);
    EXPECT_EQ(openedByOpener().last(), QUrl::fromLocalFile(bin()).toString());
}

TEST_F(WorkspaceTest, AnOpenerThatRunsOnHasOpenedAndIsNotEndedFromHere)
{
    const QString gate = bin() + QStringLiteral("/gate");
    ASSERT_EQ(mkfifo(QFile::encodeName(gate).constData(), S_IRUSR | S_IWUSR), 0);
    putOpener("read word <\"${0%/*}/gate\"; echo \"$word $$\" >>\"${0%/*}/opened\"");
    {
        Opener opener(std::chrono::milliseconds(1));
        opener.open(page, intoOutcome());
        ASSERT_TRUE(isDecided());
        EXPECT_TRUE(*outcome);
    }
    QFile way(gate);
    ASSERT_TRUE(way.open(QIODevice::WriteOnly)) << "it still reads";
    way.write("ran on\n");
    way.close();
    ASSERT_TRUE(QTest::qWaitFor([this] { return !openedByOpener().filter(QStringLiteral("ran on")).isEmpty(); }));
    const QStringList words = openedByOpener().filter(QStringLiteral("ran on")).first().split(u' ');
    ASSERT_EQ(words.size(), 3);
    EXPECT_EQ(words.first(2), QStringList({QStringLiteral("ran"), QStringLiteral("on")}));
    EXPECT_TRUE(QTest::qWaitFor([&] { return ::kill(words.last().toInt(), 0) != 0; })) << "it is waited for";
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

TEST_F(WorkspaceTest, ThePortalGetsAFileItself)
{
    StandInPortal portal(bus.connection(QStringLiteral("portal")));
    const QString path = bin() + QStringLiteral("/März 2024 #1.pdf");
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }
    open(QUrl::fromLocalFile(path));
    ASSERT_TRUE(isDecided());
    EXPECT_TRUE(*outcome);
    EXPECT_EQ(portal.calls, QStringList{QStringLiteral("OpenFile ") + path});
}

TEST_F(WorkspaceTest, AFileThatIsMissingIsLeftToTheOpenerToSay)
{
    putOpener("exit 2");
    StandInPortal portal(bus.connection(QStringLiteral("portal")));
    open(QUrl::fromLocalFile(bin() + QStringLiteral("/missing.pdf")));
    ASSERT_TRUE(isDecided());
    EXPECT_FALSE(*outcome);
    EXPECT_EQ(portal.calls, QStringList());
}

TEST_F(WorkspaceTest, TheFileManagerShowsAFolder)
{
    StandInPortal portal(bus.connection(QStringLiteral("portal")));
    StandInFileManager fileManager(bus.connection(QStringLiteral("file manager")));
    workspace->showFolder(bin().toStdString(), intoOutcome());
    EXPECT_FALSE(outcome) << "it is not waited for";
    ASSERT_TRUE(isDecided());
    EXPECT_TRUE(*outcome);
    EXPECT_EQ(fileManager.shown, QStringList{QStringLiteral("ShowFolders file://") + bin()});
    EXPECT_EQ(portal.calls, QStringList());
}

TEST_F(WorkspaceTest, AFolderThatTheFileManagerDoesNotShowIsOpened)
{
    StandInPortal portal(bus.connection(QStringLiteral("portal")));
    workspace->showFolder(bin().toStdString(), intoOutcome());
    ASSERT_TRUE(isDecided());
    EXPECT_TRUE(*outcome);
    EXPECT_EQ(portal.calls.value(0), QStringLiteral("OpenFile ") + bin()) << "there is no file manager on the bus";

    StandInFileManager fileManager(bus.connection(QStringLiteral("file manager")));
    fileManager.broken = true;
    outcome.reset();
    workspace->showFolder(bin().toStdString(), intoOutcome());
    ASSERT_TRUE(isDecided());
    EXPECT_TRUE(*outcome);
    EXPECT_EQ(portal.calls.size(), 2) << "it is broken";

    portal.response = 2;
    putOpener("exit 3");
    outcome.reset();
    workspace->showFolder(bin().toStdString(), intoOutcome());
    ASSERT_TRUE(isDecided());
    EXPECT_FALSE(*outcome);
    EXPECT_EQ(openedByOpener(), QStringList{QStringLiteral("file://") + bin()});
}

TEST_F(WorkspaceTest, NobodyNeedsToHearTheOutcome)
{
    putOpener("exit 3");
    workspace->openUrl(page, {});
    workspace->showFolder(bin().toStdString(), {});
    EXPECT_TRUE(QTest::qWaitFor([this] { return openedByOpener().size() == 2; }));
}

} // namespace

#include "workspace_test.moc"
