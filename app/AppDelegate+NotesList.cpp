// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"
#include "dates/DateUtilities.h"
#include "look/NamedColor.h"
#include "notes/NoteQueries.h"
#include "search/TextSearch.h"
#include "store/Record.h"
#include "table/TableRowView.h"
#include "table/TableView.h"
#include "text/IntegerValue.h"
#include "text/Localized.h"
#include "text/TextLines.h"
#include "ui_MainWindow.h"
#include "widgets/SegmentedControl.h"

#include <QLabel>
#include <QMainWindow>

#include <algorithm>

namespace {

constexpr const char* notesViewCurrentDateKey = "notesViewCurrentDateKey";
constexpr std::string_view eventTimeColumn = "eventTimeColID";

/// Whether `column` is the one of that identifier.
bool shows(const TableColumn& column, std::string_view identifier)
{
    return column.identifier == QLatin1String(identifier.data(), static_cast<qsizetype>(identifier.size()));
}

QString monthAndYear(Date date)
{
    return filled(QStringLiteral("%@ %@"),
                  {DateUtilities::shortMonthNameFromDate(date), DateUtilities::yearFromDate(date)});
}

const Value* rowOf(const std::optional<Table>& table, int row)
{
    return table && row >= 0 && row < table->size() ? &table->at(row) : nullptr;
}

QString shownText(const Value* element, std::string_view key)
{
    const Value* record = element ? NoteQueries::recordOf(*element) : nullptr;
    const std::string* text = record ? textOf(*record, key) : nullptr;
    return text ? QString::fromStdString(*text) : QString();
}

std::optional<Date> shownDate(const Value* element, std::string_view key)
{
    const Value* record = element ? NoteQueries::recordOf(*element) : nullptr;
    return record ? dateOf(*record, key) : std::nullopt;
}

} // namespace

void AppDelegate::chooseNotes(NotesChoice choice)
{
    m_notesChoice = std::move(choice);
    showRows(m_notesChoice.of(allNotesTVData.value_or(Table())));
}

/// Shows `rows`, none of them selected. An edit in progress belongs to the rows shown so far: the caller has ended it
/// before it worked out the new ones.
void AppDelegate::showRows(Table rows)
{
    replaceRows(std::move(rows));
    m_ui.notesTableView->reloadData();
    m_ui.notesTableView->selectRow(-1);
}

void AppDelegate::replaceRows(Table rows)
{
    ++m_rowsGeneration;
    if (notesTVData) {
        notesTVData = std::move(rows);
    }
}

void AppDelegate::showCountUnlessEmpty()
{
    if (notesTVData && !notesTVData->isEmpty()) {
        showNotesCount(visibleRowsForTV(*m_ui.notesTableView));
    }
}

void AppDelegate::showNotesForThisMonthYear(Date date)
{
    m_ui.notesTableView->endEditing();
    chooseNotes(NotesChoice::ofMonth(date));
    showCountUnlessEmpty();
}

void AppDelegate::notesForMonthShowing()
{
    const MonthGrid::YearMonth shown = fromMiniCalGetYearMonth();
    if (shown == MonthGrid::YearMonth()) {
        return;
    }
    const Date first = DateUtilities::dateFromYear(shown.year, shown.month, 1);
    showNotesForThisMonthYear(first);
    setDateForPrevNextArrows(first);
}

void AppDelegate::showOnlyCurrentYearNotes()
{
    m_ui.notesTableView->endEditing();
    chooseNotes(NotesChoice::ofYear(integerValue(DateUtilities::currentYear())));
    showCountUnlessEmpty();
}

void AppDelegate::showAllNotes(SegmentedControl& control)
{
    m_ui.notesTableView->endEditing();
    if (control.labelForSegment(1) == localized("Show All")) {
        chooseNotes(NotesChoice::all());
        control.setLabelForSegment(localized("Hide All"), 1);
    } else {
        chooseNotes(NotesChoice::none());
        control.setLabelForSegment(localized("Show All"), 1);
    }
    showCountUnlessEmpty();
}

void AppDelegate::scrollToNoteNearestTo(Date date)
{
    const std::int64_t row = NoteQueries::indexNearestTo(notesTVData.value_or(Table()), date);
    if (row != DateUtilities::NotFound) {
        m_ui.notesTableView->scrollRowToVisible(static_cast<int>(row));
    }
}

void AppDelegate::filterNotes()
{
    m_ui.notesTableView->endEditing();
    const NotesChoice choice =
        NotesChoice::matching(m_ui.filterField->text().toStdString(), DateEnvironment::localePair().currentLocale);
    Table matches = choice.of(allNotesTVData.value_or(Table()));
    if (matches.isEmpty()) {
        const QString search = m_ui.filterField->text();
        m_ui.filterField->setFoundNothing(search.isEmpty() ? QString()
                                                           : filled(localized("No note contains “%@”"), {search}));
        m_ui.filterField->setFocus(Qt::OtherFocusReason); // where the mark is, and where the next search begins
        return;
    }
    m_ui.filterField->setFoundNothing({});
    m_notesChoice = choice;
    showRows(std::move(matches));
    m_ui.hideShowSegBtn->setLabelForSegment(localized("Show All"), 1);
    announceFoundNotes();
}

void AppDelegate::backForwardNotesView(QAbstractButton& sender)
{
    const int months = &sender == m_ui.noteEntryPrevNotesBtn ? -1 : 1;
    const Date current = dateFromUnixSeconds(m_window.property(notesViewCurrentDateKey).toDouble());
    const Date date = DateUtilities::dateByAddingDays(current, 0, months, 0);
    showNotesForThisMonthYear(date);
    setDateForPrevNextArrows(date);
    m_ui.hideShowSegBtn->setLabelForSegment(localized("Show All"), 1);
    announceRows(monthAndYear(date));
}

void AppDelegate::setDateForPrevNextArrows(Date date)
{
    // A day from the middle of the month: it stays in that month wherever the time zone moves.
    const YearMonthDay day = DateUtilities::yearMonthDayFromDate(date);
    const Date inMonth = DateUtilities::dateFromYear(day.year, day.month, 15);
    m_window.setProperty(notesViewCurrentDateKey, unixSeconds(inMonth));
    m_ui.prevMonthYearDesc->setText(monthAndYear(DateUtilities::dateByAddingDays(date, 0, -1, 0)));
    m_ui.nextMonthYearDesc->setText(monthAndYear(DateUtilities::dateByAddingDays(date, 0, 1, 0)));
}

void AppDelegate::resetPagingBtns()
{
    setDateForPrevNextArrows(DateEnvironment::now());
}

void AppDelegate::respondToSegmentSelection(SegmentedControl& sender)
{
    const int segment = sender.selectedSegment();
    const QString choice = sender.labelForSegment(segment);
    switch (segment) {
    case 0: {
        const Date today = DateUtilities::today();
        showNotesForThisMonthYear(today);
        setDateForPrevNextArrows(today);
        break;
    }
    case 1:
        showAllNotes(sender);
        setDateForPrevNextArrows(DateUtilities::today());
        break;
    case 2:
        notesForMonthShowing();
        break;
    case 3:
        showOnlyCurrentYearNotes();
        setDateForPrevNextArrows(DateUtilities::janFirstThisYear());
        break;
    default:
        break;
    }
    if (segment != 1) {
        sender.setLabelForSegment(localized("Show All"), 1);
    }
    buttonEnableDisable(*m_ui.deleteRowFromListBtn, false);
    announceRows(choice);
}

void AppDelegate::nameSegments()
{
    const QString notesOf = localized("%@ Notes");
    const QString month = filled(notesOf, {DateUtilities::monthNameFromDate(DateUtilities::today())});
    m_ui.hideShowSegBtn->setLabelForSegment(month, 0);
    m_ui.hideShowSegBtn->setLabelForSegment(filled(notesOf, {DateUtilities::currentYear()}), 3);
}

std::int64_t AppDelegate::visibleRowsForTV(const TableView& tableView) const
{
    const auto hidden = static_cast<std::int64_t>(tableView.hiddenRowIndexes().size());
    if (&tableView == m_ui.notesTableView) {
        return (notesTVData ? notesTVData->size() : 0) - hidden;
    }
    if (&tableView == m_ui.importantDatesTableView) {
        return (eventsTVData ? eventsTVData->size() : 0) - hidden;
    }
    return 0;
}

void AppDelegate::showNotesCount(std::int64_t count)
{
    m_ui.countOfNotesInTV->setText(
        filled(QStringLiteral("%@ %ld %@"), {localized("Displaying"), QString::number(count), localized("notes")}));
}

void AppDelegate::buttonEnableDisable(QWidget& button, bool enable)
{
    button.setEnabled(enable);
}

void AppDelegate::increaseTVHeaderFontSize(TableView& tableView)
{
    const std::vector<TableColumn>& columns = tableView.tableColumns();
    for (std::size_t i = 0; i < columns.size(); ++i) {
        tableView.setHeaderCell(static_cast<int>(i), HeaderCell(columns[i].headerCell.title()));
    }
}

int AppDelegate::numberOfRowsInTableView(const TableView& tableView)
{
    const std::optional<Table>& table = &tableView == m_ui.notesTableView ? notesTVData : eventsTVData;
    return table ? static_cast<int>(table->size()) : 0;
}

CellView AppDelegate::viewForTableColumn(const TableView& tableView, const TableColumn& column, int row)
{
    CellView cell;
    if (&tableView == m_ui.notesTableView) {
        const Value* note = rowOf(notesTVData, row);
        if (shows(column, NoteDateKey)) {
            if (const auto date = shownDate(note, NoteDateKey)) {
                cell.text = m_sharedListDateFormatter->stringFromDate(*date);
                if (DateUtilities::isThisDate(*date, DateEnvironment::now())) {
                    cell.spokenText = filled(localized("%@, today"), {cell.text});
                    cell.textColor = namedColor(u"SystemRedColor", m_window.palette());
                }
            }
        } else if (shows(column, NoteDataKey)) {
            cell.text = shownText(note, NoteDataKey);
        }
    } else if (&tableView == m_ui.importantDatesTableView) {
        const Value* event = rowOf(eventsTVData, row);
        if (shows(column, EventDateKey)) {
            if (const auto date = shownDate(event, EventDateKey)) {
                cell.text = m_sharedListDateFormatter->stringFromDate(*date);
            }
        } else if (shows(column, EventNameKey)) {
            cell.text = shownText(event, EventNameKey);
        } else if (shows(column, eventTimeColumn) && event) {
            cell.text = calcElapsedDate(*event);
        }
    }
    return cell;
}

double AppDelegate::heightOfRow(const TableView& tableView, int row)
{
    const bool isNotes = &tableView == m_ui.notesTableView;
    const bool isEvents = &tableView == m_ui.importantDatesTableView;
    if (isNotes || isEvents) {
        const double lineHeight = isNotes ? noteLineHeight : eventLineHeight;
        const Value* element = rowOf(isNotes ? notesTVData : eventsTVData, row);
        if (element && element->array() && element->array()->isEmpty()) {
            return lineHeight; // a reminder whose note is gone leaves an empty row
        }
        const Value* record = element ? NoteQueries::recordOf(*element) : nullptr;
        if (const std::string* text = record ? textOf(*record, isNotes ? NoteDataKey : EventNameKey) : nullptr) {
            return static_cast<double>(countOfLines(*text)) * lineHeight;
        }
    }
    reportMissingText(tableView);
    return 0.0;
}

/// One alert stands for every row that lacks its text: a file with a thousand of them does not ask a thousand times.
void AppDelegate::reportMissingText(const TableView& tableView)
{
    if (m_missingTextReported) {
        return;
    }
    m_missingTextReported = true;
    const QString headline = &tableView == m_ui.notesTableView            ? localized("Notes TableView")
                             : &tableView == m_ui.importantDatesTableView ? localized("Important Dates TableView")
                                                                          : QString();
    std::unique_ptr<Alert> alert = copySheetAlertWithErrorString(localized("tableView:heightOfRow failure"), headline,
                                                                 localized("OK"), QStringLiteral(" "));
    alert->setAlertStyle(Alert::Style::Critical);
    Alert::beginSheet(std::move(alert), m_window, [this](int) { m_missingTextReported = false; });
}

std::unique_ptr<TableRowView> AppDelegate::rowViewForRow(const TableView&, int)
{
    return std::make_unique<TableRowView>();
}

/// Only what can be put somewhere: a row without a record, or a note without a day, would lose what is typed.
bool AppDelegate::shouldEditTableColumn(const TableView& tableView, const TableColumn& /*column*/, int row)
{
    const bool isNotes = &tableView == m_ui.notesTableView;
    const Value* element = rowOf(isNotes ? notesTVData : eventsTVData, row);
    const Value* record = element ? NoteQueries::recordOf(*element) : nullptr;
    // What is typed into a list whose file could not be read would have no place to go.
    return record && (!isNotes || (allNotesTVData && dateOf(*record, NoteDateKey)));
}

void AppDelegate::tableViewSelectionDidChange(TableView& tableView)
{
    const bool selected = tableView.selectedRow() >= 0;
    if (&tableView == m_ui.notesTableView) {
        buttonEnableDisable(*m_ui.deleteRowFromListBtn, selected);
    } else if (&tableView == m_ui.importantDatesTableView) {
        buttonEnableDisable(*m_ui.deleteRowFromImpDateListBtn, selected);
    }
}

void AppDelegate::tableViewSelectionIsChanging(TableView& tableView)
{
    if (&tableView == m_ui.notesTableView) {
        buttonEnableDisable(*m_ui.deleteRowFromListBtn, true);
    } else if (&tableView == m_ui.importantDatesTableView) {
        colorDatePickers();
        buttonEnableDisable(*m_ui.deleteRowFromImpDateListBtn, true);
    }
}

/// The selected record stays selected, wherever it goes.
void AppDelegate::sortDescriptorsDidChange(TableView& tableView)
{
    tableView.endEditing();
    const bool isNotes = &tableView == m_ui.notesTableView;
    std::optional<Table>& table = isNotes ? notesTVData : eventsTVData;
    const Value* row = rowOf(table, tableView.selectedRow());
    const std::optional<Value> selected = row ? std::optional(*row) : std::nullopt;
    if (table) {
        NoteQueries::sortArray(*table, tableView.sortDescriptors());
    }
    if (isNotes) {
        ++m_rowsGeneration;
        showNotesCount(visibleRowsForTV(tableView));
    }
    tableView.reloadData();
    if (selected) {
        const auto found =
            std::ranges::find_if(*table, [&](const Value& each) { return each.isSameObject(*selected); });
        tableView.selectRow(static_cast<int>(found - table->begin()));
        tableView.scrollRowToVisible(tableView.selectedRow());
    }
}
