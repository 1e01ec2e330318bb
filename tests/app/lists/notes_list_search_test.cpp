// SPDX-License-Identifier: MIT
// The search field over the list.
#include "app/PreferenceKeys.h"
#include "app/lists/notes_list_fixture.h"
#include "widgets/SearchField.h"

#include <QAccessible>
#include <QImage>
#include <QTest>

#include <cstdlib>

namespace {

TEST_F(NotesListTest, TheFilterShowsFreshCopiesInFileOrder)
{
    Table notes = {note(2024, 3, 20, "an abc"), note(2024, 3, 7, "nothing"), note(2024, 3, 5, "ABC first")};
    Dictionary foreign = *notes.at(0).dictionary();
    foreign.set("Colour", Value("blue"));
    notes[0] = Value(foreign);
    host.userDefaults.stored.insert(PreferenceKeys::notesCleaned, 1);
    putNotes(notes);
    start();
    filter(text("aBc"));
    EXPECT_EQ(app->notesTVData, Table({note(2024, 3, 20, "an abc"), note(2024, 3, 5, "ABC first")}));
    EXPECT_EQ(app->allNotesTVData, notes);
    EXPECT_EQ(segment(1), text("Show All"));
    EXPECT_EQ(countLine(), text("Displaying 3 notes")) << "the filter leaves the count line";
}

TEST_F(NotesListTest, AFilterThatFindsNothingChangesNothing)
{
    startWithFourNotes();
    for (const char* search : {"", "no such text", "2024", "Mar"}) {
        press(3);
        press(1);
        filter(text(search));
        const bool finds = text("march").contains(text(search), Qt::CaseInsensitive) && *search != '\0';
        EXPECT_EQ(shownTexts().size(), finds ? 2 : 4) << search;
        EXPECT_EQ(segment(1), finds ? text("Show All") : text("Hide All")) << search;
        EXPECT_FALSE(alert());
    }
}

TEST_F(NotesListTest, TheFilterLooksAtAllNotesNotAtThoseShown)
{
    startWithFourNotes();
    press(0);
    filter(text("february"));
    EXPECT_EQ(shownTexts(), QStringList{text("february")});
}

TEST_F(NotesListTest, ReturnInTheSearchFieldFilters)
{
    startWithFourNotes();
    QTest::keyClicks(ui->filterField, text("early"));
    QTest::keyClick(ui->filterField, Qt::Key_Return);
    EXPECT_EQ(shownTexts(), QStringList{text("march early")});
}

TEST_F(NotesListTest, ASearchThatFindsNothingMarksItsFieldUntilTheTextChanges)
{
    startWithFourNotes();
    SearchField& field = *ui->filterField;
    const auto picture = [&field] { return field.grab().toImage(); };
    const auto description = [&field] {
        return QAccessible::queryAccessibleInterface(&field)->text(QAccessible::Description);
    };
    const auto searchFor = [&](const char* needle) {
        field.setText(text(needle));
        ui->filterBtn->click();
    };
    field.setFocus();
    field.setText(text("no such text"));
    const QImage unmarked = picture();
    ui->filterBtn->setFocus();
    const QString plainDescription = description();
    ui->filterBtn->click();
    EXPECT_EQ(description(), text("No note contains “no such text”"));
    EXPECT_EQ(window->focusWidget(), &field) << "where the next search begins, and a screen reader hears it";
    EXPECT_FALSE(alert());

    // A sign in the end of the field that is there without its colours too.
    const QImage marked = picture().convertToFormat(QImage::Format_Grayscale8);
    const QImage plain = unmarked.convertToFormat(QImage::Format_Grayscale8);
    int differing = 0;
    for (int y = 6; y < marked.height() - 6; ++y) {
        for (int x = marked.width() - 32; x < marked.width() - 6; ++x) {
            differing += std::abs(qGray(marked.pixel(x, y)) - qGray(plain.pixel(x, y))) > 60 ? 1 : 0;
        }
    }
    EXPECT_GT(differing, 60);

    QTest::keyClick(&field, Qt::Key_Backspace);
    EXPECT_EQ(description(), plainDescription);
    field.setText(text("no such text"));
    EXPECT_EQ(picture(), unmarked) << "the mark is gone";

    searchFor("nowhere");
    ASSERT_TRUE(field.foundNothing());
    app->allNotesTVData->append(note(2024, 3, 9, "nowhere"));
    ui->filterBtn->click();
    EXPECT_FALSE(field.foundNothing()) << "the same text is found now";
    field.clear();
    app->filterNotes();
    EXPECT_FALSE(field.foundNothing()) << "nothing was searched for";
}

TEST_F(NotesListTest, EscapeEmptiesTheSearchField)
{
    startWithFourNotes();
    QTest::keyClicks(ui->filterField, text("early"));
    QTest::keyClick(ui->filterField, Qt::Key_Return);
    QTest::keyClick(ui->filterField, Qt::Key_Escape);
    EXPECT_EQ(ui->filterField->text(), QString());
    EXPECT_FALSE(ui->filterBtn->isEnabled());
    EXPECT_EQ(shownTexts(), QStringList{text("march early")}) << "the list stays";
    ui->filterField->undo();
    EXPECT_EQ(ui->filterField->text(), text("early"));
}

} // namespace
