// SPDX-License-Identifier: MIT
#include "sheets/AboutSheet.h"
#include "sheets/SheetQueue.h"
#include "support/AppFixture.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QTest>

namespace {

class HelpTest : public AppFixture {
protected:
    HelpTest()
    {
        host.bundle.resources = home.path().toStdString();
        std::filesystem::create_directories(host.bundle.resources / "de.lproj");
        start();
    }
};

TEST_F(HelpTest, TheHelpPageOfTheCurrentLocalesLanguageOpens)
{
    const LocaleGuard german("de_AT", {"fr-FR"});
    ui->helpAction->trigger();
    ASSERT_EQ(host.workspace.opened.size(), 1);
    EXPECT_EQ(host.workspace.opened.first(),
              QUrl::fromLocalFile(home.path() + QStringLiteral("/de.lproj/VelumoraHelp/VelumoraHelp.htm")));
}

TEST_F(HelpTest, WithoutHelpInThatLanguageNothingHappens)
{
    const LocaleGuard french("fr_FR", {"de-DE"});
    ui->helpAction->trigger();
    EXPECT_TRUE(host.workspace.opened.isEmpty());
    EXPECT_FALSE(alert());
}

TEST_F(HelpTest, TheDataFolderIsMadeIfItIsMissingAndShown)
{
    std::filesystem::remove_all(dataFolder());
    ui->showDataFolderAction->trigger();
    EXPECT_TRUE(std::filesystem::is_directory(dataFolder()));
    EXPECT_EQ(host.workspace.shownFolders, QList{dataFolder()});
}

TEST_F(HelpTest, TheWebPageOpensWithoutAWord)
{
    ui->webPageAction->trigger();
    EXPECT_EQ(host.workspace.opened, QList<QUrl>{QUrl(QStringLiteral(VELUMORA_WEB_PAGE))});
    EXPECT_FALSE(alert());
}

TEST_F(HelpTest, AWebPageThatDoesNotOpenIsToldOnceAndNotTriedAgain)
{
    host.workspace.succeeds = false;
    ui->webPageAction->trigger();
    ASSERT_TRUE(alert());
    EXPECT_EQ(alert()->messageText(), QStringLiteral("Unexpected Error"));
    EXPECT_EQ(alert()->informativeText(),
              QStringLiteral("Unable to Find Velumora web page, is there a live connection to the Web?"));
    ASSERT_EQ(alert()->buttons().size(), 2); // the second is the hidden one
    EXPECT_EQ(alert()->buttons().at(0)->text(), QStringLiteral("OK"));
    answer(1000);
    EXPECT_FALSE(alert());
    EXPECT_EQ(host.workspace.opened.size(), 1);
}

TEST_F(HelpTest, AWebPageThatTurnsOutLaterNotToOpenIsToldThen)
{
    host.workspace.succeeds = false;
    host.workspace.answersLater = true;
    ui->webPageAction->trigger();
    EXPECT_FALSE(alert());
    host.workspace.answerAll();
    ASSERT_TRUE(alert());
    EXPECT_EQ(alert()->messageText(), QStringLiteral("Unexpected Error"));
}

TEST_F(HelpTest, HelpAndFolderThatDoNotOpenAreBorneInSilence)
{
    const LocaleGuard german("de_AT", {"fr-FR"});
    host.workspace.succeeds = false;
    ui->helpAction->trigger();
    ui->showDataFolderAction->trigger();
    EXPECT_EQ(host.workspace.opened.size(), 1);
    EXPECT_EQ(host.workspace.shownFolders.size(), 1);
    EXPECT_FALSE(alert());
}

TEST_F(HelpTest, AnAnswerAfterTheDelegateIsGoneHurtsNobody)
{
    host.workspace.succeeds = false;
    host.workspace.answersLater = true;
    ui->webPageAction->trigger();
    quit();
    app.reset();
    host.workspace.answerAll();
}

TEST_F(HelpTest, AboutTellsVersionLicenceAndWebPageAndEscapeClosesIt)
{
    host.bundle.version = QStringLiteral("2.7");
    ui->aboutAction->trigger();
    auto* sheet = qobject_cast<AboutSheet*>(SheetQueue::of(*window).current());
    ASSERT_TRUE(sheet);
    QStringList texts;
    for (const QLabel* label : sheet->findChildren<QLabel*>()) {
        texts.append(label->text());
    }
    const QString all = texts.join(u'\n');
    for (const char* told : {"Version 2.7", "MIT License", VELUMORA_WEB_PAGE}) {
        EXPECT_TRUE(all.contains(QString::fromLatin1(told))) << told;
    }
    QTest::keyClick(sheet, Qt::Key_Escape);
    EXPECT_FALSE(SheetQueue::of(*window).current());
    QCoreApplication::sendPostedEvents(sheet, QEvent::DeferredDelete);
    EXPECT_FALSE(window->findChild<AboutSheet*>());
    EXPECT_TRUE(host.workspace.opened.isEmpty());
}

TEST_F(HelpTest, TheButtonInAboutOpensTheWebPageAndAFailureIsTold)
{
    host.workspace.succeeds = false;
    ui->aboutAction->trigger();
    auto* sheet = qobject_cast<AboutSheet*>(SheetQueue::of(*window).current());
    ASSERT_TRUE(sheet);
    const QList<QPushButton*> buttons = sheet->findChildren<QPushButton*>();
    ASSERT_EQ(buttons.size(), 2);
    EXPECT_TRUE(buttons.at(1)->isDefault());
    EXPECT_EQ(sheet->focusWidget(), buttons.at(1));
    buttons.at(0)->click();
    runQueued();
    EXPECT_EQ(host.workspace.opened, QList<QUrl>{QUrl(QStringLiteral(VELUMORA_WEB_PAGE))});
    ASSERT_TRUE(alert());
    EXPECT_EQ(alert()->messageText(), QStringLiteral("Unexpected Error"));
}

} // namespace
