// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"
#include "dates/ElapsedDate.h"
#include "look/NamedColor.h"
#include "store/Record.h"
#include "table/TableView.h"
#include "text/Localized.h"
#include "text/TextCutting.h"
#include "ui_MainWindow.h"
#include "widgets/DatePicker.h"
#include "widgets/SaveButton.h"

#include <QMainWindow>

namespace {

constexpr int dateColumn = 0;

/// Kept in the record until it is typed over.
QString newDescription()
{
    return localized("** put new date Description here **");
}

constexpr qsizetype spokenLength = 80; ///< UTF-16 units of a description that tell one date from another

QString spokenNameOfPicker(const ListRow& event)
{
    const std::string_view text = event.text().value_or("");
    const QString description = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())).simplified();
    return description.isEmpty() || description == newDescription()
               ? localized("Date")
               : filled(localized("Date of %@"), {beginningOf(description, spokenLength).toString()});
}

/// White on the colour of the selected row.
void colorDatePicker(DatePicker& picker, bool isSelected, const QPalette& palette)
{
    if (isSelected) {
        picker.setColors(namedColor(u"TableRowSelectedTextColor", palette),
                         namedColor(u"TableRowSelectionColor", palette));
    } else {
        picker.setColors(namedColor(u"ControlTextColor", palette), namedColor(u"ControlBackgroundColor", palette));
    }
}

} // namespace

void AppDelegate::addRowToImportDates()
{
    TableView& dates = *m_ui.importantDatesTableView;
    dates.endEditing();
    const int row = m_book.addImportantDate(DateEnvironment::now(), newDescription().toStdString());
    if (row < 0) {
        return; // the file could not be read: what is added to it is lost
    }
    dates.insertRow(row);
    dates.scrollRowToVisible(row);
    buttonEnableDisable(*m_ui.importantDateSaveBtn, true);
    m_store.draftHasChanged();
    dates.reloadData();
}

/// A new date is ready to be given its day, and with the tab key its description.
void AppDelegate::editNewestDate()
{
    TableView& dates = *m_ui.importantDatesTableView;
    dates.editColumn(dateColumn, dates.numberOfRows() - 1);
}

QWidget* AppDelegate::makeDatePicker(QWidget* parent, int row)
{
    const ListRow event = m_book.row(ListKind::ImportantDates, row);
    const std::optional<Date> date = event.date();
    if (!date || !DatePicker::canShow(*date)) {
        return nullptr;
    }
    auto* picker = new DatePicker(parent);
    picker->setAccessibleName(spokenNameOfPicker(event));
    picker->setFirstDayOfWeek(startOnSunday() ? Qt::Sunday : Qt::Monday);
    picker->setDateValue(*date);
    colorDatePicker(*picker, row == m_ui.importantDatesTableView->selectedRow(), m_window.palette());
    connect(picker, &DatePicker::dateValueChanged, this, [this, picker] { datePickerChanged(*picker); });
    return picker;
}

void AppDelegate::colorDatePickers()
{
    const TableView& dates = *m_ui.importantDatesTableView;
    if (auto* picker = qobject_cast<DatePicker*>(dates.viewAt(dateColumn, dates.editedRow()))) {
        colorDatePicker(*picker, dates.editedRow() == dates.selectedRow(), m_window.palette());
    }
}

void AppDelegate::datePickerChanged(DatePicker& sender)
{
    TableView& dates = *m_ui.importantDatesTableView;
    const int row = dates.rowForView(sender);
    if (!m_book.changeDate(row, sender.dateValue())) {
        return;
    }
    dates.noteHeightOfRowChanged(row);
    dates.redrawRow(row); // how long ago it is
    buttonEnableDisable(*m_ui.importantDateSaveBtn, true);
    m_store.draftHasChanged();
}

QString AppDelegate::calcElapsedDate(const Value& event) const
{
    const std::optional<Date> date = dateOf(event, EventDateKey);
    if (!date) {
        return {};
    }
    const ElapsedUnitWords words{.year = localized("Year"),
                                 .years = localized("Years"),
                                 .month = localized("Month"),
                                 .months = localized("Months"),
                                 .day = localized("Day"),
                                 .days = localized("Days")};
    return elapsedDateText(*date, DateEnvironment::now(), words);
}
