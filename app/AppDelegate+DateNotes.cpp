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

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QPushButton>

namespace {

/// What the items of the important dates' menu are for.
constexpr qsizetype headingItem = 0;
constexpr qsizetype ownDayItem = 1;
constexpr qsizetype thisYearItem = 2;
constexpr qsizetype itemCount = 3;

/// The same month and day in the current year. A 29 February is 1 March in a year that has none.
Date inCurrentYear(Date date)
{
    const auto [year, month, day] = DateUtilities::yearMonthDayFromDate(date);
    return DateUtilities::dateFromYear(integerValue(DateUtilities::currentYear()), month, day);
}

} // namespace

void AppDelegate::makeImportantDatesContextMenu()
{
    m_importantDatesContextMenu = new QMenu(&m_window);
    m_importantDatesContextMenu->setObjectName(QStringLiteral("importantDatesContextMenu"));
    for (qsizetype item = 0; item < itemCount; ++item) {
        QAction* action = m_importantDatesContextMenu->addAction(QString());
        connect(action, &QAction::triggered, this, [this, action] { importantDatesRespondToContextMenu(*action); });
    }
    connect(m_importantDatesContextMenu, &QMenu::aboutToShow, this,
            [this] { menuNeedsUpdate(*m_importantDatesContextMenu); });
    m_ui.importantDatesTableView->setMenu(m_importantDatesContextMenu);
}

/// The record of the row that was clicked, null when it was none.
const Value* AppDelegate::clickedEvent() const
{
    const int row = m_ui.importantDatesTableView->clickedRow();
    if (!eventsTVData || row < 0 || row >= eventsTVData->size()) {
        return nullptr;
    }
    const Value* event = NoteQueries::recordOf(eventsTVData->at(row));
    return event && dateOf(*event, EventDateKey) ? event : nullptr;
}

void AppDelegate::updateImportantDatesContextMenu()
{
    const QList<QAction*> items = m_importantDatesContextMenu->actions();
    const Value* event = clickedEvent();
    items.at(headingItem)->setEnabled(!event);
    items.at(ownDayItem)->setEnabled(event);
    items.at(thisYearItem)->setEnabled(event);
    const QString addNote = localized("Add a note or update an existing note's description for this date: %@");
    if (!event) {
        items.at(headingItem)->setText(localized("Please select a row with an Important Date on it"));
        items.at(ownDayItem)->setText(filled(addNote, {QStringLiteral("…")}));
        items.at(thisYearItem)->setText(items.at(ownDayItem)->text());
        return;
    }
    const Date date = *dateOf(*event, EventDateKey);
    const QString selected = localized("%@ has been selected. Choose an option below to continue.");
    m_sharedStyleFormatter->setDateStyle(DateFormatter::Style::Long);
    const auto title = [this](const QString& format, Date shown) {
        return filled(format, {m_sharedStyleFormatter->stringFromDate(shown)});
    };
    items.at(headingItem)->setText(title(selected, date));
    items.at(ownDayItem)->setText(title(addNote, date));
    items.at(thisYearItem)->setText(title(addNote, inCurrentYear(date)));
}

void AppDelegate::importantDatesRespondToContextMenu(const QAction& sender)
{
    const qsizetype item = m_importantDatesContextMenu->actions().indexOf(&sender);
    const Value* event = clickedEvent();
    if (!event || (item != ownDayItem && item != thisYearItem)) {
        return;
    }
    const Date eventDate = *dateOf(*event, EventDateKey);
    const std::string* eventName = textOf(*event, EventNameKey);
    const std::string name = eventName ? *eventName : std::string();
    const Date date = item == ownDayItem ? eventDate : inCurrentYear(eventDate);

    m_ui.notesTableView->endEditing(); // before its rows change
    if (notesTVData) {
        listSavedNote(date); // else an edit of the line alone would replace a note that is not shown
        NoteQueries::addLineToNote(*notesTVData, date, name);
    }
    if (notesTVData && allNotesTVData) { // else there is nothing that a save could put it into
        m_unsavedDateNotes.append(makeNoteRecord(date, name));
        buttonEnableDisable(*m_ui.noteEntryListSaveBtn, true);
        draftHasChanged();
    }

    m_sharedStyleFormatter->setDateStyle(DateFormatter::Style::Long);
    Alert::beginSheet(copySheetAlertWithErrorString(
                          filled(localized("'%@' added/appended to note for %@"),
                                 {QString::fromStdString(name), m_sharedStyleFormatter->stringFromDate(date)}),
                          localized("Note Added/Appended"), localized("OK"), QString()),
                      m_window);
    m_ui.notesTableView->reloadData();
}

/// Puts the saved note of that date, if there is one, at the end of a list that does not show it.
void AppDelegate::listSavedNote(Date date)
{
    const std::int64_t saved = NoteQueries::doesTVDataHaveDate(allNotesTVData.value_or(Table()), date);
    if (saved != DateUtilities::NotFound &&
        NoteQueries::doesTVDataHaveDate(*notesTVData, date) == DateUtilities::NotFound) {
        notesTVData->append(allNotesTVData->at(saved));
    }
}

/// The lines that were added to shown notes go into the notes that are saved.
void AppDelegate::takeInDateNotes()
{
    if (m_unsavedDateNotes.isEmpty() || !allNotesTVData) {
        return;
    }
    if (const std::optional<DatedText> edited = noteInEditor()) {
        takeIntoEditor(*edited);
    }
    for (const Value& added : std::exchange(m_unsavedDateNotes, {})) {
        const Date date = *dateOf(added, NoteDateKey);
        NoteQueries::addLineToNote(*allNotesTVData, date, *textOf(added, NoteDataKey));
        showSavedNote(date);
    }
    redrawMiniCal();
    redrawPage();
}

/// The note of that date is gone, and its lines with it.
void AppDelegate::forgetDateNotes(Date date)
{
    m_unsavedDateNotes.removeIf([date](const Value& added) { return dateOf(added, NoteDateKey) == date; });
}

/// What the user made of `text`, the note of that date, is saved. A line that is not in the text was out of sight: it
/// goes on waiting.
void AppDelegate::forgetDateNotesIn(const std::string& text, Date date)
{
    m_unsavedDateNotes.removeIf([date, &text](const Value& added) {
        return dateOf(added, NoteDateKey) == date && text.find(*textOf(added, NoteDataKey)) != std::string::npos;
    });
}

/// The note in whose row an editor stands, as it is shown.
std::optional<DatedText> AppDelegate::noteInEditor() const
{
    const int row = m_ui.notesTableView->editedRow();
    const Value* record =
        notesTVData && row >= 0 && row < notesTVData->size() ? NoteQueries::recordOf(notesTVData->at(row)) : nullptr;
    return record ? datedTextOf(*record) : std::nullopt;
}

/// An editor would write over the lines that its note gets meanwhile, so they come into its text. Where it shows
/// something else than the saved note, it ends instead.
void AppDelegate::takeIntoEditor(const DatedText& edited)
{
    const std::int64_t index = NoteQueries::doesTVDataHaveDate(*allNotesTVData, edited.date);
    Table note;
    if (index != DateUtilities::NotFound) {
        note.append(allNotesTVData->at(index));
    }
    bool hasLines = false;
    for (const Value& added : std::as_const(m_unsavedDateNotes)) {
        if (dateOf(added, NoteDateKey) == edited.date) {
            NoteQueries::addLineToNote(note, edited.date, *textOf(added, NoteDataKey));
            hasLines = true;
        }
    }
    auto* const editor = m_ui.notesTableView->findChild<CellEditor*>();
    if (!hasLines || !editor) {
        return;
    }
    const std::string whole = *textOf(note.front(), NoteDataKey);
    if (!whole.starts_with(edited.text)) {
        m_ui.notesTableView->endEditing();
        return;
    }
    editor->addAtEnd(QString::fromStdString(whole.substr(edited.text.size())));
    m_textBeforeEdit.reset(); // from here on it is the saved note that is edited
}
