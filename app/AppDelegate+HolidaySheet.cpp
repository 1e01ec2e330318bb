// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"
#include "dates/DateUtilities.h"
#include "dates/Holidays.h"
#include "look/AlphaValue.h"
#include "notes/NoteQueries.h"
#include "sheets/HolidaySheet.h"
#include "sheets/SheetQueue.h"
#include "store/Record.h"
#include "table/TableView.h"
#include "text/Localized.h"
#include "ui_MainWindow.h"
#include "widgets/SaveButton.h"

#include <QCheckBox>
#include <QLabel>
#include <QMainWindow>
#include <QPushButton>

namespace {

constexpr double savedAlpha = 0.5;

} // namespace

void AppDelegate::openHolidaySheet()
{
    for (int holiday = 0; holiday < Holidays::count; ++holiday) {
        QCheckBox& box = m_holidaySheet->box(holiday);
        const bool saved = NoteQueries::copyDictWithHolidayDateAndDesc(EventNameKey, box.text().toStdString(),
                                                                       EventDateKey, Holidays::dateOfHoliday(holiday),
                                                                       m_book.rows(ListKind::ImportantDates))
                               .has_value();
        buttonEnableDisable(box, !saved);
        setAlphaValue(box, saved ? savedAlpha : 1.0);
        box.setToolTip(saved ? localized("already saved as an 'Important Date'")
                             : localized("Press Button to Select Date"));
        box.setChecked(false);
        m_holidaySheet->dateField(holiday).clear();
    }
    buttonEnableDisable(m_holidaySheet->addDatesButton(), false);
    buttonEnableDisable(m_holidaySheet->addDatesAndNotesButton(), false);
    SheetQueue::of(m_window).begin(*m_holidaySheet);
}

void AppDelegate::respondToHolidayPressed(QCheckBox& sender)
{
    if (QLabel* field = m_holidaySheet->fieldBeside(sender)) {
        const std::optional<int> holiday = m_holidaySheet->holidayOf(sender);
        if (!sender.isChecked()) {
            field->clear();
        } else if (holiday) {
            field->setText(m_formatters->longStyleFromDate(Holidays::dateOfHoliday(*holiday)));
        }
        sender.setAccessibleDescription(field->text());
    }
    const bool anyTicked = m_holidaySheet->isAnyTicked();
    buttonEnableDisable(m_holidaySheet->addDatesButton(), anyTicked);
    buttonEnableDisable(m_holidaySheet->addDatesAndNotesButton(), anyTicked);
}

void AppDelegate::addDatesFromHolidaySheet(QAbstractButton& sender)
{
    const bool withNotes = &sender == &m_holidaySheet->addDatesAndNotesButton();
    m_ui.notesTableView->endEditing(); // before its notes change
    for (int holiday = 0; holiday < Holidays::count; ++holiday) {
        const std::string name = m_holidaySheet->box(holiday).text().toStdString();
        const QString shownDate = m_holidaySheet->dateField(holiday).text();
        if (shownDate.isEmpty()) {
            continue;
        }
        // A day without a midnight does not parse back; its records carry the day's first instant.
        const Date date = m_formatters->dateFromLongStyle(shownDate).value_or(Holidays::dateOfHoliday(holiday));
        addHoliday(date, name);
        if (withNotes) {
            addHolidayNote(date, name);
        }
    }
    for (int holiday = 0; holiday < Holidays::count; ++holiday) {
        m_holidaySheet->box(holiday).setChecked(false); // what was added is not added again
    }
    sheetCloseBtnPressed(sender);
}

void AppDelegate::addHoliday(Date date, const std::string& name)
{
    m_book.addImportantDate(date, name);
    saveTVDataToFile(*m_ui.importantDateSaveBtn);
    TableView& dates = *m_ui.importantDatesTableView;
    dates.reloadData();
    dates.scrollRowToVisible(dates.numberOfRows() - 1);
}

void AppDelegate::addHolidayNote(Date date, const std::string& name)
{
    m_book.addSavedLine(date, name);
    saveTVDataToFile(*m_ui.noteEntryListSaveBtn);
    showSavedNote(date);
    redrawMiniCal();
}

/// The list shows the very record that is saved, where it shows that day or should.
void AppDelegate::showSavedNote(Date date)
{
    if (NoteQueries::doesTVDataHaveDate(m_book.notes(), date) != DateUtilities::NotFound) {
        m_ui.filterField->setFoundNothing({}); // it may be what was searched for
    }
    const std::optional<NoteBook::ShownNote> shown = m_book.showSaved(date);
    TableView& notes = *m_ui.notesTableView;
    if (shown && shown->isNew) {
        notes.insertRow(shown->row);
        showNotesCount(visibleRowsForTV(notes));
    } else if (shown) {
        notes.noteHeightOfRowChanged(shown->row);
        notes.redrawRow(shown->row);
    }
}
