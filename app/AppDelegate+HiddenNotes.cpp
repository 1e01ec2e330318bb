// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"
#include "calendar/HiddenNotesLine.h"
#include "notes/NoteQueries.h"
#include "text/Localized.h"
#include "ui_MainWindow.h"
#include "widgets/SegmentedControl.h"

#include <algorithm>
#include <iterator>
#include <vector>

/// A page shows the notes of the list alone: `line` says how many of all notes of its `days` are among them, unless all
/// are.
void AppDelegate::tellHiddenNotes(HiddenNotesLine& line, const QString& format, std::span<const Date> days,
                                  const std::optional<Table>& notes) const
{
    std::vector<Date> distinct(days.begin(), days.end());
    // A day left out begins with the next.
    distinct.erase(std::unique(distinct.begin(), distinct.end()), distinct.end());
    const IndexSet all = NoteQueries::datesWithNotes(m_book.notes(), distinct);
    const IndexSet listed = NoteQueries::datesWithNotes(elementsOf(notes), distinct);
    IndexSet shown;
    std::ranges::set_intersection(all, listed, std::inserter(shown, shown.end()));
    line.setText(shown.size() == all.size()
                     ? QString()
                     : filled(format, {QString::number(shown.size()), QString::number(all.size())}));
}

/// What the segment of all notes does, whatever it would do now; the page shown stays the page shown.
void AppDelegate::showAllNotesOnPage()
{
    offerAllNotes();
    m_ui.hideShowSegBtn->press(static_cast<int>(NotesSegment::All));
    redrawPage();
}

/// The notes that the page shows may be others now. The mini calendar is no such page.
void AppDelegate::redrawPage()
{
    if (shownPage() == Page::Week) {
        redrawWeek(0);
    } else if (shownPage() == Page::Month) {
        redrawMonth(0);
    }
}
