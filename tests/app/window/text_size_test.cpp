// SPDX-License-Identifier: MIT
// Texts are as large as the desktop's, but where the program fixes a size.
#include "calendar/DayNumber.h"
#include "calendar/NoteField.h"
#include "calendar/WeeklyGrid.h"
#include "look/ReadingText.h"
#include "look/TableMetrics.h"
#include "look/TextSize.h"
#include "support/AppFixture.h"
#include "support/FontGuard.h"
#include "table/HeaderCell.h"

#include <QFontInfo>
#include <QLabel>
#include <QTabBar>

namespace {

int sizeOf(const QWidget& widget)
{
    widget.ensurePolished();
    return QFontInfo(widget.font()).pixelSize();
}

class TextSizeTest : public AppFixture {
protected:
    void startWith(int pixelSize)
    {
        m_font.emplace(pixelSize);
        start();
    }

    QWidget& weeklyDay() { return *window->findChild<WeeklyGrid*>()->findChild<DayNumber*>(); }

    std::optional<FontGuard> m_font;
};

TEST_F(TextSizeTest, TextsAreSizedByTheDesktopsFont)
{
    startWith(20);
    for (const QWidget* plain : std::initializer_list<const QWidget*>{
             ui->todayBtn, ui->miniCalYear, ui->filterField, ui->menuBar, ui->myTabView->tabBar(), &dayButton(1),
             ui->weeklyGrid->findChild<NoteField*>(), window->findChild<QDialog*>(QStringLiteral("thePrefsSheet"))}) {
        EXPECT_EQ(sizeOf(*plain), 20) << plain->objectName().toStdString();
    }
    EXPECT_EQ(sizeOf(*ui->miniCalMonthName), 23);
    EXPECT_EQ(sizeOf(*ui->miniCalTime), 40);
    EXPECT_EQ(sizeOf(weeklyDay()), 37);
    EXPECT_EQ(sizeOf(*ui->monthlyViewMonthYear), 34);
}

TEST_F(TextSizeTest, WhatIsFixedStaysAsItIs)
{
    putNotes({note(2024, 3, 15, "one line")});
    startWith(20);
    EXPECT_EQ(cellFont().pixelSize(), 13);
    EXPECT_EQ(HeaderCell::font().pixelSize(), 13);
    EXPECT_EQ(app->heightOfRow(*ui->notesTableView, 0), 17);
}

TEST_F(TextSizeTest, AChangeWhileTheProgramRunsIsFollowed)
{
    startWith(13);
    ui->weeklyViewPageAction->trigger();
    runQueued();
    EXPECT_EQ(sizeOf(weeklyDay()), 24);
    const int buttonHeight = ui->todayBtn->sizeHint().height();
    {
        const FontGuard larger(20);
        runQueued();
        EXPECT_EQ(sizeOf(weeklyDay()), 37);
        EXPECT_EQ(sizeOf(*ui->miniCalMonthName), 23);
        EXPECT_GT(ui->todayBtn->sizeHint().height(), buttonHeight);
    }
    runQueued();
    EXPECT_EQ(sizeOf(weeklyDay()), 24);
    EXPECT_EQ(sizeOf(*ui->miniCalMonthName), 15);
}

TEST_F(TextSizeTest, AnAlertHasOneFamilyOfSizes)
{
    startWith(20);
    AppDelegate::doSheetAlert(*window, QStringLiteral("body"), QStringLiteral("headline"), QStringLiteral("OK"), {});
    ASSERT_TRUE(alert());
    const QList<ReadingText*> texts = alert()->findChildren<ReadingText*>();
    EXPECT_EQ(sizeOf(*texts.at(0)), 23);
    EXPECT_TRUE(texts.at(0)->font().bold());
    EXPECT_EQ(sizeOf(*texts.at(1)), 20);
    EXPECT_EQ(sizeOf(*alert()->buttons().at(0)), 20);
}

TEST_F(TextSizeTest, TheSizeThatTheDesktopTellsIsTakenInWhileTheProgramRuns)
{
    startWith(13);
    host.globalDefaults.setText({.points = 15, .scaling = 1});
    runQueued();
    EXPECT_EQ(sizeOf(*ui->todayBtn), 20);
    EXPECT_EQ(sizeOf(*ui->miniCalMonthName), 23);
    host.globalDefaults.setText({});
    runQueued();
    EXPECT_EQ(sizeOf(*ui->todayBtn), 13);
}

} // namespace
