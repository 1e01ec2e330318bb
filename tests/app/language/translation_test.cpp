// SPDX-License-Identifier: MIT
#include "support/AppFixture.h"
#include "support/TranslationGuard.h"
#include "text/Localized.h"

#include <QGuiApplication>
#include <QLineEdit>
#include <QMenu>
#include <QSet>

namespace {

QString installedText(const std::vector<std::string>& preferredLanguages)
{
    const TranslationGuard texts(preferredLanguages);
    return localized("Search notes");
}

class TranslationTest : public AppFixture {};
class GermanTest : public AppFixture {
protected:
    LocaleGuard german{"de_DE", {"de-DE"}};
    TranslationGuard texts{{"de-DE"}};
};

TEST(InstallTranslation, TakesTheFirstPreferredLanguageThatTheProgramSpeaks)
{
    const QString english = QStringLiteral("Search notes");
    const QString german = QStringLiteral("Notizen durchsuchen");
    const struct {
        std::vector<std::string> preferred;
        QString text;
    } rows[] = {
        {{"de"}, german},
        {{"de-AT"}, german},
        {{"de-CH", "en-US"}, german},
        {{"DE"}, german},
        {{"tlh", "de-DE"}, german}, // a language without texts is passed over
        {{"en-US", "de-DE"}, english},
        {{"en"}, english},
        {{"tlh", "en-GB", "de-DE"}, english},
        {{"tlh"}, english},
        {{"den"}, english}, // another language, not German
        {{""}, english},
        {{}, english},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(installedText(row.preferred), row.text) << ::testing::PrintToString(row.preferred);
    }
}

TEST(InstallTranslation, BringsTheToolkitsOwnTexts)
{
    const TranslationGuard texts({"de-DE"});
    QLineEdit field;
    const QMenu* menu = field.createStandardContextMenu(); // the field's
    EXPECT_TRUE(menu->actions().first()->text().startsWith(QStringLiteral("&Rückgängig")))
        << menu->actions().first()->text().toStdString();
}

TEST(InstallTranslation, SetsTheDirectionOfTheLanguage)
{
    {
        const TranslationGuard texts({"ug-CN"}); // the tests' own catalogue, written from right to left
        EXPECT_EQ(localized("Today"), QStringLiteral("بۈگۈن"));
        EXPECT_EQ(QGuiApplication::layoutDirection(), Qt::RightToLeft);
    }
    const TranslationGuard texts({"de-DE"});
    EXPECT_EQ(QGuiApplication::layoutDirection(), Qt::LeftToRight);
}

TEST(InstallTranslation, ShowsEnglishTextsFromLeftToRightWhereALanguageIsNotSpoken)
{
    const TranslationGuard texts({"ar-EG"});
    EXPECT_EQ(localized("Today"), QStringLiteral("Today"));
    EXPECT_EQ(QGuiApplication::layoutDirection(), Qt::LeftToRight);
}

TEST_F(GermanTest, WindowAndMenuSpeakGerman)
{
    start();
    EXPECT_EQ(ui->fileMenu->title(), QStringLiteral("&Datei"));
    EXPECT_EQ(ui->todayBtn->text(), QStringLiteral("Heute"));
    EXPECT_EQ(ui->myTabView->tabText(0), QStringLiteral("Kalender"));
    EXPECT_EQ(ui->hideShowSegBtn->labels(),
              (QStringList{QStringLiteral("Notizen März"), QStringLiteral("Alle ausblenden"),
                           QStringLiteral("Minikalender-Monat"), QStringLiteral("Notizen 2024")}));
    EXPECT_EQ(countLine(), QStringLiteral("Angezeigt: 0 Notizen"));
}

TEST_F(GermanTest, AnAlertSpeaksGermanThoughItsKeyHoldsACarriageReturn)
{
    putNotes({note(2024, 3, 15, "Zahnarzt")});
    start();
    ui->notesTableView->selectRow(0);
    runQueued();
    ui->deleteRowFromListBtn->click();
    ASSERT_TRUE(alert());
    EXPECT_EQ(alert()->messageText(), QStringLiteral("Diesen Eintrag wirklich löschen?"));
    EXPECT_EQ(alert()->informativeText(), QStringLiteral("Notiz vom\r 15.03.2024"));
    EXPECT_EQ(alert()->buttons().at(0)->text(), QStringLiteral("Löschen"));
    EXPECT_EQ(alert()->buttons().at(1)->text(), QStringLiteral("Abbrechen"));
}

TEST_F(GermanTest, ANewImportantDateAsksForItsDescriptionInGerman)
{
    start();
    app->addRowToImportDates();
    EXPECT_EQ(textOf(app->eventsTVData->at(0), EventNameKey), "** Hier die Beschreibung eingeben **");
}

TEST_F(GermanTest, HideAndShowAllStillTakeTurns)
{
    putNotes({note(2024, 3, 15, "Zahnarzt")});
    start();
    ui->hideShowSegBtn->press(1);
    EXPECT_EQ(ui->hideShowSegBtn->labelForSegment(1), QStringLiteral("Alle anzeigen"));
    EXPECT_TRUE(shownRows().isEmpty());
    ui->hideShowSegBtn->press(1);
    EXPECT_EQ(ui->hideShowSegBtn->labelForSegment(1), QStringLiteral("Alle ausblenden"));
    EXPECT_EQ(shownRows().size(), 1);
}

TEST_F(TranslationTest, NoTwoEntriesOfAMenuShareAKeyInAnyLanguage)
{
    for (const std::string language : {"en", "de"}) {
        const TranslationGuard texts({language});
        start();
        QList<QWidget*> menus{ui->menuBar};
        for (QMenu* menu : ui->menuBar->findChildren<QMenu*>()) {
            menus.append(menu);
        }
        for (const QWidget* menu : menus) {
            QSet<QChar> keys;
            for (const QAction* action : menu->actions()) {
                const QString text = action->text();
                if (const qsizetype mark = text.indexOf(u'&'); mark >= 0) {
                    const QChar key = text.at(mark + 1).toLower();
                    EXPECT_FALSE(keys.contains(key)) << text.toStdString();
                    keys.insert(key);
                }
            }
        }
    }
}

} // namespace
