// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"
#include "dates/DateUtilities.h"
#include "notes/NoteQueries.h"
#include "store/Record.h"
#include "table/CellEditor.h"
#include "table/TableView.h"
#include "text/IntegerValue.h"
#include "text/Localized.h"
#include "ui_MainWindow.h"
#include "widgets/SheetQueue.h"

#include <QAbstractButton>
#include <QMainWindow>
#include <QMetaObject>

#include <algorithm>
#include <utility>

namespace {

/// `element`, in which there is a record, with `text` under `key`: in itself or in the first record of a list that
/// stands in its place.
Value withEditedText(const Value& element, std::string_view key, const std::string& text)
{
    if (const Array* list = element.array()) {
        const auto shown = std::ranges::find_if(*list, NoteQueries::recordOf);
        Array edited = *list;
        edited[shown - list->begin()] = withEditedText(*shown, key, text);
        return Value(std::move(edited));
    }
    return withText(element, key, text);
}

/// The text of the note in `element`; empty where it has none.
std::string noteText(const Value& element)
{
    const Value* record = NoteQueries::recordOf(element);
    const std::string* text = record ? textOf(*record, NoteDataKey) : nullptr;
    return text ? *text : std::string();
}

/// The date of `element` as a question shows it; empty where it has none.
QString mediumStyleDate(const Value& element, std::string_view key)
{
    const Value* record = NoteQueries::recordOf(element);
    const std::optional<Date> date = record ? dateOf(*record, key) : std::nullopt;
    return date ? DateUtilities::mediumStyleFromDate(*date) : QString();
}

/// Where the row below `row` stands once every row equal to `element` is gone.
int placeWithout(const Value& element, const Table& rows, int row)
{
    Table above = rows.first(std::clamp<qsizetype>(row, 0, rows.size()));
    NoteQueries::removeEqual(above, element);
    return static_cast<int>(above.size());
}

/// After a deletion no row is selected; the keys have not lost their place.
void goOnAtRow(TableView& tableView, int row)
{
    tableView.resumeAtRow(row);
    tableView.setFocus(Qt::OtherFocusReason);
}

} // namespace

void AppDelegate::controlTextDidChange(QWidget& field)
{
    if (&field == m_ui.filterField) {
        buttonEnableDisable(*m_ui.filterBtn, !m_ui.filterField->text().isEmpty());
        return;
    }
    const int noteRow = m_ui.notesTableView->rowForView(field);
    const bool isNote = noteRow >= 0;
    TableView& tableView = isNote ? *m_ui.notesTableView : *m_ui.importantDatesTableView;
    const int row = isNote ? noteRow : tableView.rowForView(field);
    std::optional<Table>& table = isNote ? notesTVData : eventsTVData;
    const auto* editor = qobject_cast<const CellEditor*>(&field);
    if (!editor || !table || row < 0 || row >= table->size() || !NoteQueries::recordOf(table->at(row))) {
        return;
    }
    const std::string_view key = isNote ? NoteDataKey : EventNameKey;
    if (isNote && !m_textBeforeEdit) {
        m_textBeforeEdit = noteText(table->at(row));
    }
    (*table)[row] = withEditedText(table->at(row), key, editor->text().toStdString());
    tableView.noteHeightOfRowChanged(row);
    buttonEnableDisable(isNote ? *m_ui.noteEntryListSaveBtn : *m_ui.importantDateSaveBtn, true);
    draftHasChanged();
}

/// What is composed becomes a part of the text in the row.
void AppDelegate::takeInComposedText(const DatedText& edited)
{
    Value& element = (*notesTVData)[m_ui.notesTableView->editedRow()];
    if (!m_textBeforeEdit) {
        m_textBeforeEdit = noteText(element);
    }
    element = withEditedText(element, NoteDataKey, edited.text);
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
    if (row < 0) {
        return false;
    }
    const std::optional<std::string> before = std::exchange(m_textBeforeEdit, std::nullopt);
    if (!notesTVData || !allNotesTVData || row >= notesTVData->size()) {
        return false;
    }
    const Value* record = NoteQueries::recordOf(notesTVData->at(row));
    const std::optional<Date> date = record ? dateOf(*record, NoteDateKey) : std::nullopt;
    const std::string* text = record ? textOf(*record, NoteDataKey) : nullptr;
    if (!date || !text || (text->empty() && !isEdited)) {
        return false; // a day that was only looked at leaves no empty note behind
    }
    if (before) {
        forgetDateNotesIn(*before, *date);     // the text as it is now is what the user wants
        m_ui.filterField->setFoundNothing({}); // and perhaps what was searched for
    }
    const std::int64_t index = NoteQueries::doesTVDataHaveDate(*allNotesTVData, *date);
    if (index == DateUtilities::NotFound) {
        allNotesTVData->append(*record);
        m_saves.save(allNotesTVData, std::string(NotesFileName));
    } else {
        const std::string saved = noteText(allNotesTVData->at(index));
        if (!before || saved == *text) {
            return false; // a look at a row that shows another text than the saved one does not save it
        }
        (*allNotesTVData)[index] = *record;
        qInfo("CTDEE replaced in 'all' array");
        saveNotesInsteadOf(saved, *before);
    }
    return true;
}

/// Saves the notes of which one that said `replaced` is changed or gone. A row can show another text than the saved
/// one, after an import for example: what was not `seen` is kept aside.
void AppDelegate::saveNotesInsteadOf(const std::string& replaced, const std::string& seen)
{
    if (seen.find(replaced) != std::string::npos) {
        m_saves.save(allNotesTVData, std::string(NotesFileName));
        return;
    }
    m_saves.retry();
    m_saves.waitUntilDone(); // the copy is made of what is on the disk
    m_saves.save(allNotesTVData, std::string(NotesFileName), Replacing::Nothing);
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
    if (!notesTVData || row < 0 || row >= notesTVData->size()) {
        Alert::beginSheet(copySheetAlertWithErrorString(localized("No Row Selected"),
                                                        localized("To Delete a Row, please select one"),
                                                        localized("Confirm Delete"), localized("Cancel Delete")),
                          m_window);
        return;
    }
    confirmDeletion(filled(localized("of note for\r %@"), {mediumStyleDate(notesTVData->at(row), NoteDateKey)}),
                    [this, row, generation = m_rowsGeneration] {
                        if (generation == m_rowsGeneration) { // else the sheet named a note that stood there before
                            deleteNoteAtRow(row);
                        }
                    });
}

void AppDelegate::askToDeleteEvent()
{
    m_ui.importantDatesTableView->endEditing();
    const int row = m_ui.importantDatesTableView->selectedRow();
    if (!eventsTVData || row < 0 || row >= eventsTVData->size()) {
        return;
    }
    const Value event = eventsTVData->at(row);
    confirmDeletion(filled(localized("of important note for %@ ?"), {mediumStyleDate(event, EventDateKey)}),
                    [this, event] { deleteEvent(event); });
}

void AppDelegate::confirmDeletion(const QString& question, std::function<void()> deletion)
{
    Alert::beginSheet(copySheetAlertWithErrorString(question, localized("Please confirm deletion"),
                                                    localized("Confirm Delete"), localized("Cancel Delete")),
                      m_window, [deletion = std::move(deletion)](int answer) {
                          if (answer == Alert::firstButtonReturn) {
                              deletion();
                          }
                      });
}

void AppDelegate::deleteNoteAtRow(int row)
{
    if (!notesTVData || row >= notesTVData->size()) {
        return;
    }
    const Value element = notesTVData->at(row);
    const auto later = [this](auto step) { QMetaObject::invokeMethod(this, std::move(step), Qt::QueuedConnection); };
    later([this, element, row] {
        const int place = placeWithout(element, *notesTVData, row);
        Table rows = *notesTVData;
        NoteQueries::removeEqual(rows, element);
        showRows(std::move(rows));
        goOnAtRow(*m_ui.notesTableView, place);
    });

    const Value* record = NoteQueries::recordOf(element);
    const std::optional<Date> date = record ? dateOf(*record, NoteDateKey) : std::nullopt;
    if (date && allNotesTVData) {
        forgetDateNotes(*date);
        draftHasChanged();
        const std::int64_t index = NoteQueries::doesTVDataHaveDate(*allNotesTVData, *date);
        if (index != DateUtilities::NotFound) {
            const std::string deleted = noteText(allNotesTVData->takeAt(index));
            saveNotesInsteadOf(deleted, noteText(element));
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
    const int place = placeWithout(event, *eventsTVData, m_ui.importantDatesTableView->selectedRow());
    NoteQueries::removeEqual(*eventsTVData, event);
    m_saves.save(eventsTVData, std::string(EventsFileName));
    m_ui.importantDatesTableView->reloadData();
    m_ui.importantDatesTableView->selectRow(-1);
    goOnAtRow(*m_ui.importantDatesTableView, place);
    buttonEnableDisable(*m_ui.deleteRowFromImpDateListBtn, false);
}
