// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"
#include "dates/DateUtilities.h"
#include "dates/Holidays.h"
#include "look/AlphaValue.h"
#include "notes/NoteQueries.h"
#include "store/Record.h"
#include "table/TableView.h"
#include "text/Localized.h"
#include "ui_HolidaySheet.h"
#include "ui_MainWindow.h"
#include "widgets/SheetQueue.h"

#include <QMainWindow>

#include <algorithm>

namespace {

constexpr int firstCheckBoxTag = 200;
constexpr int tagsPerHoliday = 2; ///< the check box and, next to it, the field of its date

constexpr double savedAlpha = 0.5;

/// The controls of the holiday sheet, found by tag.
template <typename Control> Control* viewWithTag(const QWidget& sheet, int tag)
{
    const QList<Control*> controls = sheet.findChildren<Control*>();
    const auto found = std::ranges::find_if(
        controls, [tag](const Control* control) { return control->property("tag").toInt() == tag; });
    return found == controls.end() ? nullptr : *found;
}

QCheckBox& checkBox(const QWidget& sheet, int holiday)
{
    return *viewWithTag<QCheckBox>(sheet, firstCheckBoxTag + tagsPerHoliday * holiday);
}

QLabel& dateField(const QWidget& sheet, int holiday)
{
    return *viewWithTag<QLabel>(sheet, firstCheckBoxTag + tagsPerHoliday * holiday + 1);
}

/// The holiday of a check box; nothing when `tag` is not the tag of one.
std::optional<int> holidayOfTag(int tag)
{
    const int offset = tag - firstCheckBoxTag;
    const bool isCheckBox = offset >= 0 && offset < tagsPerHoliday * Holidays::count && offset % tagsPerHoliday == 0;
    return isCheckBox ? std::optional(offset / tagsPerHoliday) : std::nullopt;
}

} // namespace

void AppDelegate::openHolidaySheet()
{
    for (int holiday = 0; holiday < Holidays::count; ++holiday) {
        QCheckBox& box = checkBox(*m_holidaySheet, holiday);
        const bool saved = NoteQueries::copyDictWithHolidayDateAndDesc(EventNameKey, box.text().toStdString(),
                                                                       EventDateKey, Holidays::dateOfHoliday(holiday),
                                                                       eventsTVData.value_or(Table()))
                               .has_value();
        buttonEnableDisable(box, !saved);
        setAlphaValue(box, saved ? savedAlpha : 1.0);
        box.setToolTip(saved ? localized("already saved as an 'Important Date'")
                             : localized("Press Button to Select Date"));
        box.setChecked(false);
        dateField(*m_holidaySheet, holiday).clear();
    }
    buttonEnableDisable(*m_holidayLayout->addDatesBtn, false);
    buttonEnableDisable(*m_holidayLayout->addDatesAndNotesBtn, false);
    SheetQueue::of(m_window).begin(*m_holidaySheet);
}

void AppDelegate::respondToHolidayPressed(QCheckBox& sender)
{
    const int tag = sender.property("tag").toInt();
    m_sharedStyleFormatter->setDateStyle(DateFormatter::Style::Long);
    if (auto* field = viewWithTag<QLabel>(*m_holidaySheet, tag + 1)) {
        const std::optional<int> holiday = holidayOfTag(tag);
        if (!sender.isChecked()) {
            field->clear();
        } else if (holiday) {
            field->setText(m_sharedStyleFormatter->stringFromDate(Holidays::dateOfHoliday(*holiday)));
        }
        sender.setAccessibleDescription(field->text());
    }
    bool anyTicked = false;
    for (int holiday = 0; holiday < Holidays::count && !anyTicked; ++holiday) {
        anyTicked = checkBox(*m_holidaySheet, holiday).isChecked();
    }
    buttonEnableDisable(*m_holidayLayout->addDatesBtn, anyTicked);
    buttonEnableDisable(*m_holidayLayout->addDatesAndNotesBtn, anyTicked);
}

void AppDelegate::addDatesFromHolidaySheet(QAbstractButton& sender)
{
    const bool withNotes = &sender == m_holidayLayout->addDatesAndNotesBtn;
    m_ui.notesTableView->endEditing(); // before its notes change
    m_sharedStyleFormatter->setDateStyle(DateFormatter::Style::Long);
    for (int holiday = 0; holiday < Holidays::count; ++holiday) {
        const std::string name = checkBox(*m_holidaySheet, holiday).text().toStdString();
        const QString shownDate = dateField(*m_holidaySheet, holiday).text();
        if (shownDate.isEmpty()) {
            continue;
        }
        // A day without a midnight does not parse back; its records carry the day's first instant.
        const Date date = m_sharedStyleFormatter->dateFromString(shownDate).value_or(Holidays::dateOfHoliday(holiday));
        addHoliday(date, name);
        if (withNotes) {
            addHolidayNote(date, name);
        }
    }
    for (int holiday = 0; holiday < Holidays::count; ++holiday) {
        checkBox(*m_holidaySheet, holiday).setChecked(false); // what was added is not added again
    }
    sheetCloseBtnPressed(sender);
}

void AppDelegate::addHoliday(Date date, const std::string& name)
{
    if (eventsTVData) {
        eventsTVData->append(makeEventRecord(date, name));
    }
    saveTVDataToFile(*m_ui.importantDateSaveBtn);
    TableView& dates = *m_ui.importantDatesTableView;
    dates.reloadData();
    dates.scrollRowToVisible(dates.numberOfRows() - 1);
}

void AppDelegate::addHolidayNote(Date date, const std::string& name)
{
    if (allNotesTVData) {
        NoteQueries::addLineToNote(*allNotesTVData, date, name);
    }
    saveTVDataToFile(*m_ui.noteEntryListSaveBtn);
    showSavedNote(date);
    redrawMiniCal();
}

/// The list shows the very record that is saved, where it shows that day or should.
void AppDelegate::showSavedNote(Date date)
{
    const std::int64_t saved = NoteQueries::doesTVDataHaveDate(allNotesTVData.value_or(Table()), date);
    if (!notesTVData || saved == DateUtilities::NotFound) {
        return;
    }
    const Value& note = allNotesTVData->at(saved);
    m_ui.filterField->setFoundNothing({}); // it may be what was searched for
    TableView& notes = *m_ui.notesTableView;
    if (const std::int64_t row = NoteQueries::doesTVDataHaveDate(*notesTVData, date); row != DateUtilities::NotFound) {
        (*notesTVData)[row] = note;
        notes.noteHeightOfRowChanged(static_cast<int>(row));
        notes.redrawRow(static_cast<int>(row));
    } else if (m_notesChoice.holds(note)) {
        const qsizetype place = m_notesChoice.placeAmong(*notesTVData, note);
        ++m_rowsGeneration;
        notesTVData->insert(place, note);
        notes.insertRow(static_cast<int>(place));
        showNotesCount(visibleRowsForTV(notes));
    }
}
