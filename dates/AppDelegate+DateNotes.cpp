// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"
#include "app/Localized.h"
#include "dates/DateUtilities.h"
#include "dates/IntegerValue.h"
#include "notes/NoteQueries.h"
#include "notes/TableView.h"
#include "store/Record.h"
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

/// The lines that were added to shown notes go into the notes that are saved.
void AppDelegate::takeInDateNotes()
{
    if (m_unsavedDateNotes.isEmpty() || !allNotesTVData) {
        return;
    }
    for (const Value& added : std::exchange(m_unsavedDateNotes, {})) {
        const Date date = *dateOf(added, NoteDateKey);
        NoteQueries::addLineToNote(*allNotesTVData, date, *textOf(added, NoteDataKey));
        showSavedNote(date);
    }
    redrawMiniCal();
}

/// The note of that date has been saved as it is shown, or is gone.
void AppDelegate::forgetDateNotes(Date date)
{
    m_unsavedDateNotes.removeIf([date](const Value& added) { return dateOf(added, NoteDateKey) == date; });
}
