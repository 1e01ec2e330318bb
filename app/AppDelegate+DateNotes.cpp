// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"
#include "dates/DateUtilities.h"
#include "store/Record.h"
#include "table/CellEditor.h"
#include "table/TableView.h"
#include "text/IntegerValue.h"
#include "text/Localized.h"
#include "ui_MainWindow.h"
#include "widgets/DateNotesMenu.h"
#include "widgets/SaveButton.h"

#include <QMainWindow>

namespace {

/// The same month and day in the current year. A 29 February is 1 March in a year that has none.
Date inCurrentYear(Date date)
{
    const auto [year, month, day] = DateUtilities::yearMonthDayFromDate(date);
    return DateUtilities::dateFromYear(integerValue(DateUtilities::currentYear()), month, day);
}

/// An editor would write over the lines that its note gets meanwhile, so they come into its text. Where it shows
/// something else than the saved note, it ends instead.
void takeIntoEditor(const DatedText& edited, NoteBook& book, TableView& notes)
{
    const std::optional<std::string> whole = book.textWithWaitingLines(edited);
    auto* const editor = notes.findChild<CellEditor*>();
    if (!whole || !editor) {
        return;
    }
    if (!whole->starts_with(edited.text)) {
        notes.endEditing();
        return;
    }
    editor->addAtEnd(QString::fromStdString(whole->substr(edited.text.size())));
    book.restartEdit();
}

} // namespace

void AppDelegate::updateImportantDatesContextMenu()
{
    const std::optional<Date> date = clickedRow(m_datesList).date();
    if (!date) {
        m_importantDatesContextMenu->refuse();
        return;
    }
    m_importantDatesContextMenu->offer(m_formatters->longStyleFromDate(*date),
                                       m_formatters->longStyleFromDate(inCurrentYear(*date)));
}

void AppDelegate::importantDatesRespondToContextMenu(const QAction& sender)
{
    const std::optional<DateNotesMenu::Choice> choice = m_importantDatesContextMenu->choiceOf(sender);
    const ListRow event = clickedRow(m_datesList);
    const std::optional<Date> ownDay = event.date();
    if (!choice || !ownDay) {
        return;
    }
    const std::string name(event.text().value_or(""));
    const Date date = *choice == DateNotesMenu::Choice::OwnDay ? *ownDay : inCurrentYear(*ownDay);

    m_ui.notesTableView->endEditing(); // before its rows change
    if (m_book.addLine(date, name)) {
        buttonEnableDisable(*m_ui.noteEntryListSaveBtn, true);
        m_store.draftHasChanged();
    }

    Alert::beginSheet(
        copySheetAlertWithErrorString(filled(localized("'%@' added/appended to note for %@"),
                                             {QString::fromStdString(name), m_formatters->longStyleFromDate(date)}),
                                      localized("Note Added/Appended"), localized("OK"), QString()),
        m_window);
    m_ui.notesTableView->reloadData();
}

/// The lines that were added to shown notes go into the notes that are saved.
void AppDelegate::takeInDateNotes()
{
    if (!m_book.hasWaitingLines() || !allNotesTVData) {
        return;
    }
    if (const std::optional<DatedText> edited = noteInEditor()) {
        takeIntoEditor(*edited, m_book, *m_ui.notesTableView);
    }
    for (const Date date : m_book.mergeWaitingLines()) {
        showSavedNote(date);
    }
    redrawMiniCal();
    redrawPage();
}

/// The note in whose row an editor stands, as it is shown.
std::optional<DatedText> AppDelegate::noteInEditor() const
{
    return m_book.row(ListKind::Notes, m_ui.notesTableView->editedRow()).datedText();
}
