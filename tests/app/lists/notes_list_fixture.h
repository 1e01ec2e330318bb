// SPDX-License-Identifier: MIT
#pragma once

#include "support/AppFixture.h"

/// The clock of the fixture stands at 15 March 2024, 09:30. The list starts with all notes, unless a test says
/// otherwise.
class NotesListTest : public AppFixture {
protected:
    QString segment(int index) { return ui->hideShowSegBtn->labelForSegment(index); }
    void press(int index) { ui->hideShowSegBtn->press(index); }

    /// The texts of the notes shown, in their order.
    QStringList shownTexts()
    {
        QStringList texts;
        for (const QString& row : shownRows()) {
            texts.append(row.section(text(" | "), 1));
        }
        return texts;
    }

    QString pagingLabels() { return ui->prevMonthYearDesc->text() + text(" / ") + ui->nextMonthYearDesc->text(); }

    void filter(const QString& search)
    {
        ui->filterField->setText(search);
        app->filterNotes();
    }

    /// Out of order, as a file can be: two notes of March, one of February, one of another year.
    void startWithFourNotes()
    {
        putNotes({note(2024, 3, 20, "march late"), note(2023, 7, 1, "other year"), note(2024, 3, 5, "march early"),
                  note(2024, 2, 29, "february")});
        start();
    }
};
