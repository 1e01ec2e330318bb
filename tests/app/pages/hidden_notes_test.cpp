// SPDX-License-Identifier: MIT
#include "app/PreferenceKeys.h"
#include "calendar/HiddenNotesLine.h"
#include "calendar/MonthlyGrid.h"
#include "calendar/NoteField.h"
#include "support/AppFixture.h"

#include <QAccessible>
#include <QAction>
#include <QLabel>
#include <QTest>

namespace {

/// The clock of the fixture stands at 15 March 2024, a Friday: the week is that of the 10th to the 16th.
class HiddenNotesTest : public AppFixture {
protected:
    void startWithNotes()
    {
        putNotes({note(2024, 3, 11, "choir"), note(2024, 3, 15, "dentist"), note(2024, 3, 20, "choir again"),
                  note(2024, 4, 2, "april")});
        start();
    }

    void search(const char* needle)
    {
        ui->filterField->setText(text(needle));
        ui->filterBtn->click();
    }

    static QLabel& label(const HiddenNotesLine& line) { return *line.findChild<QLabel*>(); }
    static QPushButton& button(const HiddenNotesLine& line) { return *line.findChild<QPushButton*>(); }

    /// What the line of the page shown says; empty when it is out of sight.
    QString said()
    {
        const HiddenNotesLine& line =
            ui->myTabView->currentIndex() == 1 ? *ui->weeklyViewHiddenNotes : *ui->monthlyViewHiddenNotes;
        return line.isVisible() ? label(line).text() : QString();
    }
};

TEST_F(HiddenNotesTest, WhileAPageShowsAllItsNotesItSaysNothing)
{
    startWithNotes();
    for (const int page : {1, 2}) {
        ui->myTabView->setCurrentIndex(page);
        EXPECT_EQ(said(), QString()) << page;
    }
    ui->myTabView->setCurrentIndex(0);
    ui->hideShowSegBtn->press(0); // the notes of March
    ui->myTabView->setCurrentIndex(2);
    EXPECT_EQ(said(), QString()) << "the note of April is none of this month";
    ui->monthlyViewForwardBtn->click();
    EXPECT_EQ(said(), text("Notes of this month shown: 0 of 1"));
    ui->monthlyViewBackBtn->click();
    EXPECT_EQ(said(), QString());
}

TEST_F(HiddenNotesTest, AMarkedSearchIsNoMoreOnceWhatItSoughtMayBeThere)
{
    startWithNotes();
    search("milk");
    ASSERT_TRUE(ui->filterField->foundNothing());
    typeNote(0, QStringLiteral("milk"));
    EXPECT_FALSE(ui->filterField->foundNothing());
}

TEST_F(HiddenNotesTest, AfterASearchAPageSaysHowManyOfItsNotesItShows)
{
    startWithNotes();
    search("choir");
    ui->myTabView->setCurrentIndex(1);
    EXPECT_EQ(said(), text("Notes of this week shown: 1 of 2"));
    ui->weeklyViewForwardWeek->click();
    EXPECT_EQ(said(), QString());
    ui->weeklyViewBackWeek->click();
    EXPECT_EQ(said(), text("Notes of this week shown: 1 of 2"));
    ui->myTabView->setCurrentIndex(2);
    EXPECT_EQ(said(), text("Notes of this month shown: 2 of 3"));
    EXPECT_EQ(countLine(), text("Displaying 4 notes")) << "the count line is left alone";
}

TEST_F(HiddenNotesTest, ItsButtonShowsAllNotesAndThePageStaysThePage)
{
    for (const int page : {1, 2}) {
        startWithNotes();
        search("dentist");
        ui->myTabView->setCurrentIndex(page);
        (page == 1 ? ui->weeklyViewForwardWeek : ui->monthlyViewForwardBtn)->click();
        (page == 1 ? ui->weeklyViewForwardWeek : ui->monthlyViewForwardBtn)->click();
        (page == 1 ? ui->weeklyViewBackWeek : ui->monthlyViewBackBtn)->click();
        ASSERT_EQ(said(),
                  page == 1 ? text("Notes of this week shown: 0 of 1") : text("Notes of this month shown: 0 of 1"));
        const QString shown = page == 1 ? ui->weeklyViewStartingDate->text() : ui->monthlyViewMonthYear->text();
        button(page == 1 ? *ui->weeklyViewHiddenNotes : *ui->monthlyViewHiddenNotes).click();
        EXPECT_EQ(said(), QString());
        EXPECT_EQ(app->notesTVData, app->allNotesTVData);
        EXPECT_EQ(ui->hideShowSegBtn->labelForSegment(1), text("Hide All"));
        EXPECT_EQ(ui->myTabView->currentIndex(), page);
        EXPECT_EQ(page == 1 ? ui->weeklyViewStartingDate->text() : ui->monthlyViewMonthYear->text(), shown);
        QStringList notes;
        for (const NoteField* field : ui->myTabView->currentWidget()->findChildren<NoteField*>()) {
            notes.append(field->note());
        }
        EXPECT_TRUE(notes.contains(page == 1 ? text("choir again") : text("april")));
    }
}

TEST_F(HiddenNotesTest, ItsButtonNeverHidesThem)
{
    startWithNotes();
    app->allNotesTVData->append(note(2024, 3, 12, "new"));
    ASSERT_EQ(ui->hideShowSegBtn->labelForSegment(1), text("Hide All")) << "what the segment would do";
    ui->myTabView->setCurrentIndex(2);
    ASSERT_EQ(said(), text("Notes of this month shown: 3 of 4"));
    button(*ui->monthlyViewHiddenNotes).click();
    EXPECT_EQ(said(), QString());
    EXPECT_EQ(app->notesTVData->size(), 5);
}

TEST_F(HiddenNotesTest, ANewDayWithoutANoteDoesNotCount)
{
    startWithNotes();
    dayButton(13).click();
    ui->myTabView->setCurrentIndex(2);
    EXPECT_EQ(said(), QString());
}

TEST_F(HiddenNotesTest, TheLineIsReachedByTheTabKeyAndSpoken)
{
    startWithNotes();
    search("choir");
    ui->myTabView->setCurrentIndex(2);
    ui->monthlyViewPrintBtn->setFocus();
    QTest::keyClick(window->focusWidget(), Qt::Key_Tab);
    QPushButton& showAll = button(*ui->monthlyViewHiddenNotes);
    ASSERT_EQ(window->focusWidget(), &showAll);
    const QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&showAll);
    EXPECT_EQ(spoken->text(QAccessible::Name), text("Show All Notes"));
    EXPECT_EQ(spoken->text(QAccessible::Description), text("Notes of this month shown: 2 of 3"));
    QTest::keyClick(&showAll, Qt::Key_Space);
    EXPECT_EQ(said(), QString());
    ASSERT_TRUE(window->focusWidget());
    EXPECT_TRUE(window->focusWidget()->isVisible()) << "the keys have not gone with the line";
}

TEST_F(HiddenNotesTest, ThePrintedPageDoesNotSayIt)
{
    startWithNotes();
    const auto pageText = [this] {
        ui->myTabView->setCurrentIndex(0);
        ui->myTabView->setCurrentIndex(2);
        const MonthPage page = ui->monthlyGrid->page();
        QStringList texts = page.weekdays + QStringList{page.title};
        for (const MonthPage::Cell& cell : page.cells) {
            texts += {cell.day, cell.note};
        }
        return texts;
    };
    const QStringList without = pageText();
    ASSERT_EQ(said(), QString());
    app->allNotesTVData->append(note(2024, 3, 12, "not listed"));
    const QStringList with = pageText();
    ASSERT_NE(said(), QString());
    EXPECT_EQ(with, without);
}

} // namespace
