// SPDX-License-Identifier: MIT
#include "app/PreferenceKeys.h"
#include "calendar/DayNumber.h"
#include "calendar/MonthlyGrid.h"
#include "support/AppFixture.h"

#include <QAction>
#include <QDialog>
#include <QLabel>
#include <QRadioButton>

namespace {

class PreferencesTest : public AppFixture {
protected:
    QDialog& sheet() { return *window->findChild<QDialog*>(QStringLiteral("thePrefsSheet")); }
    QRadioButton& choice(const char* name) { return *sheet().findChild<QRadioButton*>(QString::fromLatin1(name)); }

    void openSheet()
    {
        ui->preferencesAction->trigger();
        runQueued();
    }

    /// The names of the four choices that are on.
    QStringList chosen()
    {
        QStringList names;
        for (const char* name : {"sundayPref", "mondayPref", "allVelumora", "currentMonthVelumora"}) {
            if (choice(name).isChecked()) {
                names.append(QString::fromLatin1(name));
            }
        }
        return names;
    }

    int stored(const QString& key) { return host.userDefaults.stored.value(key, -1); }

    /// The spoken name of the mini calendar's first column.
    QString firstColumn()
    {
        const QLabel* first = nullptr;
        for (const QLabel* header : ui->miniCalendarGrid->findChildren<QLabel*>()) {
            if (!first || header->x() < first->x()) {
                first = header;
            }
        }
        return first->accessibleName();
    }
};

TEST_F(PreferencesTest, DefaultsAreRegisteredAtEveryStartAndNotWritten)
{
    start();
    EXPECT_EQ(host.userDefaults.registered,
              (QHash<QString, int>{
                  {QStringLiteral("Sunday or Monday for start of week"), 1},
                  {QStringLiteral("Show all velumora or just current month velumora"), 1},
                  {QStringLiteral("Velumora Dictionary cleaned of old TALV unused data"), 0},
              }));
    EXPECT_TRUE(host.userDefaults.stored.isEmpty());
}

TEST_F(PreferencesTest, AFreshAccountStartsTheWeekOnSundayAndShowsAllNotes)
{
    start();
    openSheet();
    EXPECT_EQ(chosen(), (QStringList{QStringLiteral("sundayPref"), QStringLiteral("allVelumora")}));
    EXPECT_EQ(firstColumn(), QStringLiteral("Sunday"));
}

TEST_F(PreferencesTest, TheSheetShowsWhatIsStoredEachTimeItOpens)
{
    host.userDefaults.stored = {{PreferenceKeys::weekStart, 0}, {PreferenceKeys::startList, 0}};
    start();
    openSheet();
    EXPECT_EQ(chosen(), (QStringList{QStringLiteral("mondayPref"), QStringLiteral("currentMonthVelumora")}));
    sheet().done(0);
    host.userDefaults.stored = {{PreferenceKeys::weekStart, 1}, {PreferenceKeys::startList, 1}};
    openSheet();
    EXPECT_EQ(chosen(), (QStringList{QStringLiteral("sundayPref"), QStringLiteral("allVelumora")}));
}

TEST_F(PreferencesTest, AnyWeekStartButZeroCountsAsSunday)
{
    for (const int value : {5, -1}) {
        host.userDefaults.stored.insert(PreferenceKeys::weekStart, value);
        start();
        openSheet();
        EXPECT_TRUE(choice("sundayPref").isChecked()) << value;
        EXPECT_FALSE(choice("mondayPref").isChecked()) << value;
        EXPECT_EQ(firstColumn(), QStringLiteral("Sunday")) << value;
    }
}

TEST_F(PreferencesTest, DaysAreNamedInTheUsersLanguage)
{
    start();
    const LocaleGuard german("en_US", {"de-DE"});
    openSheet();
    EXPECT_EQ(choice("sundayPref").text(), QStringLiteral("Sonntag"));
    EXPECT_EQ(choice("mondayPref").text(), QStringLiteral("Montag"));
}

TEST_F(PreferencesTest, EachChoiceIsStoredAndFlushedAtOnce)
{
    start();
    openSheet();
    struct {
        const char* name;
        const QString& key;
        int value;
    } const rows[] = {{"mondayPref", PreferenceKeys::weekStart, 0},
                      {"sundayPref", PreferenceKeys::weekStart, 1},
                      {"currentMonthVelumora", PreferenceKeys::startList, 0},
                      {"allVelumora", PreferenceKeys::startList, 1}};
    int synchronizations = 0;
    for (const auto& row : rows) {
        choice(row.name).click();
        EXPECT_EQ(stored(row.key), row.value) << row.name;
        EXPECT_EQ(host.userDefaults.synchronizations, ++synchronizations) << row.name;
    }
    EXPECT_EQ(host.userDefaults.stored.size(), 2);
}

TEST_F(PreferencesTest, TheMiniCalendarThatShowsIsLaidOutAtOnce)
{
    start();
    openSheet();
    choice("mondayPref").click();
    EXPECT_EQ(firstColumn(), QStringLiteral("Monday"));
    choice("sundayPref").click();
    EXPECT_EQ(firstColumn(), QStringLiteral("Sunday"));
}

TEST_F(PreferencesTest, APageThatDoesNotShowIsLaidOutWhenItIsSelected)
{
    start();
    for (const int page : {1, 2}) {
        ui->myTabView->setCurrentIndex(page);
        openSheet();
        choice("mondayPref").click();
        EXPECT_EQ(firstColumn(), QStringLiteral("Sunday"));
        ui->myTabView->setCurrentIndex(0);
        EXPECT_EQ(firstColumn(), QStringLiteral("Monday"));
        choice("sundayPref").click();
        sheet().done(0);
    }
}

TEST_F(PreferencesTest, TheMonthThatShowsIsLaidOutAtOnce)
{
    start();
    ui->myTabView->setCurrentIndex(2);
    openSheet();
    const auto day = [this](int cell) { return ui->monthlyGrid->dayNumber(cell).text(); };
    ASSERT_EQ(day(6), QStringLiteral("1")) << "1 March 2024 is a Friday";
    choice("mondayPref").click();
    EXPECT_EQ(day(5), QStringLiteral("1"));
    EXPECT_EQ(ui->monthlyGrid->header(0).text(), QStringLiteral("Mon"));
    choice("sundayPref").click();
    EXPECT_EQ(day(6), QStringLiteral("1"));
    EXPECT_EQ(ui->monthlyGrid->header(0).text(), QStringLiteral("Sun"));
}

TEST_F(PreferencesTest, TheListPreferenceChangesNothingOnTheScreen)
{
    putNotes({note(2024, 3, 2, "in March"), note(2024, 4, 1, "in April")});
    start();
    const QStringList rows = shownRows();
    const QStringList labels = ui->hideShowSegBtn->labels();
    openSheet();
    choice("currentMonthVelumora").click();
    EXPECT_EQ(shownRows(), rows);
    EXPECT_EQ(ui->hideShowSegBtn->labels(), labels);
    EXPECT_EQ(countLine(), QStringLiteral("Displaying 2 notes"));
}

TEST_F(PreferencesTest, TheSheetHangsOnTheWindowUntilItsButtonClosesIt)
{
    start();
    openSheet();
    EXPECT_TRUE(sheet().isVisible());
    EXPECT_EQ(sheet().windowModality(), Qt::WindowModal);
    EXPECT_EQ(sheet().parentWidget(), window.get());
    sheet().findChild<QPushButton*>(QStringLiteral("closeBtn"))->click();
    EXPECT_FALSE(sheet().isVisible());
    EXPECT_EQ(sheet().result(), 0);
}

TEST_F(PreferencesTest, AskedForTwiceWhileAnAlertIsUpTheSheetOpensOnce)
{
    start();
    AppDelegate::doSheetAlert(*window, QString(), QStringLiteral("first"), QStringLiteral("OK"), QString());
    openSheet();
    openSheet();
    EXPECT_FALSE(sheet().isVisible());
    answer(1000);
    EXPECT_TRUE(sheet().isVisible());
    sheet().done(0);
    runQueued();
    EXPECT_FALSE(sheet().isVisible());
}

} // namespace
