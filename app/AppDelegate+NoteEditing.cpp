// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"
#include "dates/DateUtilities.h"
#include "sheets/SheetQueue.h"
#include "store/Record.h"
#include "table/CellEditor.h"
#include "table/TableView.h"
#include "text/IntegerValue.h"
#include "text/Localized.h"
#include "ui_MainWindow.h"
#include "widgets/SaveButton.h"

#include <QAbstractButton>
#include <QMainWindow>
#include <QMetaObject>

#include <utility>

namespace {

QString mediumStyleDate(const ListRow& row)
{
    const std::optional<Date> date = row.date();
    return date ? DateUtilities::mediumStyleFromDate(*date) : QString();
}

/// After a deletion no row is selected, but the arrow keys continue from where they were.
void goOnAtRow(TableView& tableView, int row)
{
    tableView.resumeAtRow(row);
    tableView.setFocus(Qt::OtherFocusReason);
}

void confirmDeletion(QWidget& window, const QString& question, std::function<void()> deletion)
{
    Alert::beginSheet(AppDelegate::copySheetAlertWithErrorString(question, localized("Please confirm deletion"),
                                                                 localized("Confirm Delete"),
                                                                 localized("Cancel Delete")),
                      window, [deletion = std::move(deletion)](int answer) {
                          if (answer == Alert::firstButtonReturn) {
                              deletion();
                          }
                      });
}

} // namespace

void AppDelegate::controlTextDidChange(QWidget& field)
{
    if (&field == m_ui.filterField) {
        buttonEnableDisable(*m_ui.filterBtn, !m_ui.filterField->text().isEmpty());
        return;
    }
    const auto* editor = qobject_cast<const CellEditor*>(&field);
    const int noteRow = m_ui.notesTableView->rowForView(field);
    const ListBinding& list = noteRow >= 0 ? m_notesList : m_datesList;
    const int row = noteRow >= 0 ? noteRow : list.view.rowForView(field);
    if (!editor || !m_book.changeText(list.kind, row, editor->text().toStdString())) {
        return;
    }
    list.view.noteHeightOfRowChanged(row);
    buttonEnableDisable(list.saveButton, true);
    m_store.draftHasChanged();
}

void AppDelegate::controlTextDidEndEditing(QWidget& field)
{
    const auto* editor = qobject_cast<const CellEditor*>(&field);
    if (editor && takeInNote(m_ui.notesTableView->rowForView(field), editor->isEdited())) {
        redrawMiniCal();
    }
}

/// Saves the notes with that of the row; false when there is nothing to save.
bool AppDelegate::takeInNote(int row, bool isEdited)
{
    using Outcome = NoteBook::FinishedEdit::Outcome;
    const NoteBook::FinishedEdit edit = m_book.finishEdit(row, isEdited);
    if (edit.wasChanged) {
        m_ui.filterField->setFoundNothing({}); // it is perhaps what was searched for
    }
    switch (edit.outcome) {
    case Outcome::Nothing:
        return false;
    case Outcome::Added:
        m_store.save(ListKind::Notes);
        break;
    case Outcome::Replaced:
        qInfo("CTDEE replaced in 'all' array");
        m_store.saveNotesInsteadOf(edit.replaced, edit.seen);
        break;
    }
    return true;
}

void AppDelegate::respondToDeleteRowFromList(QAbstractButton& sender)
{
    if (SheetQueue::of(m_window).current()) {
        return; // a screen reader reaches the window under a sheet, whose answer may change the rows
    }
    if (&sender == m_ui.deleteRowFromListBtn) {
        askToDeleteNote();
    } else {
        askToDeleteEvent();
    }
}

void AppDelegate::askToDeleteNote()
{
    m_ui.notesTableView->endEditing();
    const int row = m_ui.notesTableView->selectedRow();
    const ListRow note = m_book.row(ListKind::Notes, row);
    if (!note) {
        Alert::beginSheet(copySheetAlertWithErrorString(localized("No Row Selected"),
                                                        localized("To Delete a Row, please select one"),
                                                        localized("Confirm Delete"), localized("Cancel Delete")),
                          m_window);
        return;
    }
    confirmDeletion(m_window, filled(localized("of note for\r %@"), {mediumStyleDate(note)}),
                    [this, row, generation = m_book.rowsGeneration()] {
                        if (generation == m_book.rowsGeneration()) {
                            deleteNoteAtRow(row);
                        } // else the sheet named a note that stood there before
                    });
}

void AppDelegate::askToDeleteEvent()
{
    m_ui.importantDatesTableView->endEditing();
    const ListRow event = m_book.row(ListKind::ImportantDates, m_ui.importantDatesTableView->selectedRow());
    if (event) {
        confirmDeletion(m_window, filled(localized("of important note for %@ ?"), {mediumStyleDate(event)}),
                        [this, element = *event.element()] { deleteEvent(element); });
    }
}

void AppDelegate::deleteNoteAtRow(int row)
{
    const ListRow note = m_book.row(ListKind::Notes, row);
    if (!note) {
        return;
    }
    const Value element = *note.element();
    const std::optional<Date> date = note.date();
    const auto later = [this](auto step) { QMetaObject::invokeMethod(this, std::move(step), Qt::QueuedConnection); };
    later([this, element, row] {
        const int place = m_book.removeRows(ListKind::Notes, element, row);
        showRows();
        goOnAtRow(*m_ui.notesTableView, place);
    });
    if (date && allNotesTVData) {
        m_store.draftHasChanged();
        if (const std::optional<std::string> deleted = m_book.removeNote(*date)) {
            m_store.saveNotesInsteadOf(*deleted, std::string(note.text().value_or("")));
            buttonEnableDisable(*m_ui.deleteRowFromListBtn, false);
        }
        const MonthGrid::YearMonth ofNote{.year = integerValue(DateUtilities::yearFromDate(*date)),
                                          .month = integerValue(DateUtilities::monthFromDate(*date))};
        if (ofNote == fromMiniCalGetYearMonth()) {
            enableMiniCalDatesWithNotes(*date, allNotesTVData, startOnSunday(), m_window);
            colorTodayOnMiniCal();
        }
    }
    later([this] { showNotesCount(visibleRowsForTV(*m_ui.notesTableView)); });
}

void AppDelegate::deleteEvent(const Value& event)
{
    if (!eventsTVData) {
        return;
    }
    TableView& dates = *m_ui.importantDatesTableView;
    const int place = m_book.removeRows(ListKind::ImportantDates, event, dates.selectedRow());
    m_store.save(ListKind::ImportantDates);
    dates.reloadData();
    dates.selectRow(-1);
    goOnAtRow(dates, place);
    buttonEnableDisable(*m_ui.deleteRowFromImpDateListBtn, false);
}
