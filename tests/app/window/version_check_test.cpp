// SPDX-License-Identifier: MIT
#include "look/ReadingText.h"
#include "support/AppFixture.h"
#include "support/Screenshot.h"

#include <QAction>
#include <QTest>

namespace {

class VersionCheckTest : public AppFixture {
protected:
    VersionCheckTest() { start(); }

    /// Asks for the check from the menu, where the own version is `own` and the server tells `reply`.
    void check(const QString& own, const std::optional<QString>& reply)
    {
        host.bundle.version = own;
        host.versionServer.reply = reply;
        ui->versionCheckAction->trigger();
    }

    /// The titles of the buttons that can be seen.
    QStringList buttonTitles()
    {
        QStringList titles;
        for (const QPushButton* button : alert()->buttons()) {
            if (button->isVisible()) {
                titles.append(button->text());
            }
        }
        return titles;
    }
};

const QString currentIs = QStringLiteral("This version of Velumora (%1) is the current version.");
const QString newerIs = QStringLiteral("A new version of Velumora (%1) is available.");

TEST_F(VersionCheckTest, ANewerVersionIsReportedWithTwoButtons)
{
    check(QStringLiteral("2.3"), QStringLiteral("2.4"));
    ASSERT_TRUE(alert());
    EXPECT_EQ(alert()->messageText(), newerIs.arg(QStringLiteral("2.4")));
    EXPECT_EQ(alert()->informativeText(), QStringLiteral("It can be downloaded from the Velumora web site. "));
    EXPECT_EQ(buttonTitles(), (QStringList{QStringLiteral("Go to web site"), QStringLiteral("OK")}));
    saveScreenshot(grabbed(*alert(), 2));
}

TEST_F(VersionCheckTest, WithoutAReplyTheCheckHasFailed)
{
    check(QStringLiteral("2.3"), std::nullopt);
    ASSERT_TRUE(alert());
    EXPECT_EQ(alert()->messageText(), QStringLiteral("Version check failed."));
    EXPECT_EQ(alert()->informativeText(), QStringLiteral("The Velumora web site could not be contacted."));
    EXPECT_EQ(buttonTitles(), QStringList{QStringLiteral("OK")});
    saveScreenshot(grabbed(*alert(), 2));
}

TEST_F(VersionCheckTest, OnlyAReplyThatOrdersBehindTheOwnVersionIsNew)
{
    struct {
        QString own;
        QString reply;
        bool isNew;
    } const rows[] = {
        {QStringLiteral("2.3"), QStringLiteral("2.3"), false},
        {QStringLiteral("2.3"), QStringLiteral("2.2"), false},
        {QStringLiteral("2.3"), QStringLiteral("2.3.1"), true},
        {QStringLiteral("2.3"), QStringLiteral("2.3 "), true},
        {QStringLiteral("2.3"), QStringLiteral("2"), false},
        {QStringLiteral("2.3"), QStringLiteral(""), false},
        {QStringLiteral("2.3"), QStringLiteral(" 2.4"), false}, // a blank orders before every digit
        {QStringLiteral("1.9"), QStringLiteral("1.10"), false}, // texts, not numbers
        {QStringLiteral("10.0"), QStringLiteral("9.0"), true},
        {QStringLiteral("2.3B"), QStringLiteral("2.3a"), true}, // capitals order first
        {QStringLiteral("2.3a"), QStringLiteral("2.3B"), false},
        {QStringLiteral("2.3"), QStringLiteral("\uFEFF2.3"), true},
    };
    for (const auto& row : rows) {
        check(row.own, row.reply);
        ASSERT_TRUE(alert());
        EXPECT_EQ(alert()->messageText(), row.isNew ? newerIs.arg(row.reply) : QString()) << row.reply.toStdString();
        if (!row.isNew) {
            EXPECT_EQ(alert()->informativeText(), currentIs.arg(row.own));
            EXPECT_EQ(buttonTitles(), QStringList{QStringLiteral("OK")});
        }
        answer(1000);
    }
}

TEST_F(VersionCheckTest, ALineEndStandsInTheParentheses)
{
    check(QStringLiteral("2.3"), QStringLiteral("2.3\n"));
    ASSERT_TRUE(alert());
    EXPECT_EQ(alert()->messageText(), QStringLiteral("A new version of Velumora (2.3\n) is available."));
    saveScreenshot(grabbed(*alert(), 2));
}

TEST_F(VersionCheckTest, TheReplyIsPlainTextWhateverItHolds)
{
    const QString reply = QStringLiteral("<b>9</b><img src='file:///etc/passwd'> %@ %1 &amp; &x");
    check(QStringLiteral("2.3"), reply);
    ASSERT_TRUE(alert());
    const QString expected = QStringLiteral("A new version of Velumora (") + reply + QStringLiteral(") is available.");
    EXPECT_EQ(alert()->findChild<ReadingText*>()->toPlainText(), expected);
}

TEST_F(VersionCheckTest, TheLongestReplyFitsIntoTheSheet)
{
    check(QStringLiteral("2.3"), QString(64 * 1024, QLatin1Char('9')));
    ASSERT_TRUE(alert());
    EXPECT_LT(alert()->width(), window->width());
    EXPECT_LT(alert()->height(), window->height());
    for (const qsizetype button : {0, 1}) {
        EXPECT_TRUE(alert()->rect().contains(alert()->buttons().at(button)->geometry())) << button;
    }
    saveScreenshot(grabbed(*alert(), 2));
}

TEST_F(VersionCheckTest, OkOpensTheWebPageAndGoToWebSiteClosesTheSheetAlone)
{
    struct {
        Qt::Key key;
        int pagesOpened;
    } const rows[] = {{Qt::Key_Return, 0}, {Qt::Key_Escape, 1}}; // they answer the first and the second button
    for (const auto& row : rows) {
        host.workspace.opened.clear();
        check(QStringLiteral("2.3"), QStringLiteral("2.4"));
        ASSERT_TRUE(alert());
        QTest::keyClick(alert(), row.key);
        EXPECT_FALSE(alert());
        EXPECT_EQ(host.workspace.opened.size(), row.pagesOpened) << row.key;
    }
    host.workspace.opened.clear();
    for (const int button : {1000, 1001}) {
        check(QStringLiteral("2.3"), QStringLiteral("2.4"));
        answer(button);
        EXPECT_EQ(host.workspace.opened.size(), button - 1000);
    }
}

TEST_F(VersionCheckTest, NoOtherAnswerOpensTheWebPage)
{
    for (const std::optional<QString>& reply : {std::optional<QString>(), std::optional(QStringLiteral("2.3"))}) {
        check(QStringLiteral("2.3"), reply);
        ASSERT_TRUE(alert());
        QTest::keyClick(alert(), Qt::Key_Escape);
        ASSERT_TRUE(alert()) << "there is no second button that Escape could press";
        answer(1000);
        EXPECT_FALSE(alert());
    }
    EXPECT_TRUE(host.workspace.opened.isEmpty());
}

TEST_F(VersionCheckTest, AWebPageThatDoesNotOpenIsTold)
{
    host.workspace.succeeds = false;
    check(QStringLiteral("2.3"), QStringLiteral("2.4"));
    answer(1001);
    ASSERT_TRUE(alert());
    EXPECT_EQ(alert()->messageText(), QStringLiteral("Unexpected Error"));
}

// --- While the reply is on its way -----------------------------------------------------------------------------------

class HeldVersionCheckTest : public VersionCheckTest {
protected:
    HeldVersionCheckTest() { host.versionServer.answersLater = true; }

    void letAnswer()
    {
        host.versionServer.answer();
        runQueued();
    }
};

TEST_F(HeldVersionCheckTest, TheSheetBeginsWhenTheReplyIsThereAndNotBefore)
{
    check(QStringLiteral("2.3"), QStringLiteral("2.4"));
    EXPECT_FALSE(alert());
    EXPECT_FALSE(ui->versionCheckAction->isEnabled());
    EXPECT_EQ(window->cursor().shape(), Qt::BusyCursor);
    letAnswer();
    ASSERT_TRUE(alert());
    EXPECT_EQ(alert()->messageText(), newerIs.arg(QStringLiteral("2.4")));
    EXPECT_TRUE(ui->versionCheckAction->isEnabled());
    EXPECT_EQ(window->cursor().shape(), Qt::ArrowCursor);
    EXPECT_EQ(host.versionServer.underWay, 0);
}

TEST_F(HeldVersionCheckTest, OneCheckIsMadeAtATime)
{
    app->doNewVersionCheck();
    app->doNewVersionCheck(); // as an assistive technology may have it
    EXPECT_EQ(host.versionServer.fetches, 1);
    letAnswer();
    answer(1000);
    EXPECT_FALSE(alert()) << "there is no second answer";
    app->doNewVersionCheck();
    EXPECT_EQ(host.versionServer.fetches, 2);
}

TEST_F(HeldVersionCheckTest, NotesCanBeWrittenMeanwhile)
{
    putNotes({note(2024, 3, 16, "a")});
    start();
    app->doNewVersionCheck();
    typeNote(0, QStringLiteral("typed meanwhile"));
    EXPECT_EQ(notesOnDisk(), Table{note(2024, 3, 16, "typed meanwhile")});
    EXPECT_EQ(host.versionServer.underWay, 1);
}

TEST_F(HeldVersionCheckTest, ItsSheetWaitsBehindOneThatWasPutUpMeanwhile)
{
    check(QStringLiteral("2.3"), std::nullopt);
    clickReminder(note(2024, 3, 16, "b"));
    Alert* former = alert();
    ASSERT_TRUE(former);
    letAnswer();
    EXPECT_EQ(alert(), former);
    answer(1000);
    ASSERT_TRUE(alert());
    EXPECT_EQ(alert()->messageText(), QStringLiteral("Version check failed."));
}

TEST_F(HeldVersionCheckTest, TheEndOfTheProgramGivesItUp)
{
    app->doNewVersionCheck();
    host.versionServer.answer();
    quit();
    EXPECT_EQ(host.versionServer.underWay, 0);
    runQueued(); // the answer comes to nobody
}

TEST_F(VersionCheckTest, NothingIsFetchedUnasked)
{
    EXPECT_EQ(host.versionServer.fetches, 0);
}

} // namespace
