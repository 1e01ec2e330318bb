// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"
#include "calendar/SpokenDays.h"
#include "dates/DateUtilities.h"
#include "look/NamedColor.h"
#include "notes/NoteQueries.h"
#include "table/TableRowView.h"
#include "table/TableView.h"
#include "text/IntegerValue.h"
#include "text/Localized.h"
#include "text/TextLines.h"
#include "ui_MainWindow.h"
#include "widgets/SegmentedControl.h"

#include <QLabel>
#include <QMainWindow>

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

QString shownText(const ListRow& row)
{
    const std::string_view text = row.text().value_or("");
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace

/// Shows the notes that are chosen, and how many they are.
void AppDelegate::chooseNotes(NotesChoice choice)
{
    m_ui.notesTableView->endEditing(); // it belongs to the rows shown so far
    m_book.choose(std::move(choice));
    showRows();
    if (!m_book.rows(ListKind::Notes).isEmpty()) {
        showNotesCount(visibleRowsForTV(*m_ui.notesTableView));
    }
}

/// Shows the rows of the notebook, none of them selected. An edit in progress belongs to the rows shown so far: the
/// caller has ended it before there were new ones.
void AppDelegate::showRows()
{
    m_ui.notesTableView->reloadData();
    m_ui.notesTableView->selectRow(-1);
}

void AppDelegate::showNotesForThisMonthYear(Date date)
{
    chooseNotes(NotesChoice::ofMonth(date));
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
    chooseNotes(NotesChoice::ofYear(integerValue(DateUtilities::currentYear())));
}

void AppDelegate::showAllNotes(SegmentedControl& control)
{
    constexpr int segment = static_cast<int>(NotesSegment::All);
    const bool offersAll = control.labelForSegment(segment) == localized("Show All");
    chooseNotes(offersAll ? NotesChoice::all() : NotesChoice::none());
    control.setLabelForSegment(offersAll ? localized("Hide All") : localized("Show All"), segment);
}

void AppDelegate::filterNotes()
{
    m_ui.notesTableView->endEditing();
    const NotesChoice choice =
        NotesChoice::matching(m_ui.filterField->text().toStdString(), DateEnvironment::localePair().currentLocale);
    if (!m_book.chooseIfAny(choice)) {
        const QString search = m_ui.filterField->text();
        m_ui.filterField->setFoundNothing(search.isEmpty() ? QString()
                                                           : filled(localized("No note contains “%@”"), {search}));
        m_ui.filterField->setFocus(Qt::OtherFocusReason); // where the mark is, and where the next search begins
        return;
    }
    m_ui.filterField->setFoundNothing({});
    showRows();
    offerAllNotes();
    m_announcer.announceFoundNotes();
}

void AppDelegate::backForwardNotesView(QAbstractButton& sender)
{
    const int months = &sender == m_ui.noteEntryPrevNotesBtn ? -1 : 1;
    const Date current = dateFromUnixSeconds(m_window.property(notesViewCurrentDateKey).toDouble());
    const Date date = DateUtilities::dateByAddingDays(current, 0, months, 0);
    showNotesForThisMonthYear(date);
    setDateForPrevNextArrows(date);
    offerAllNotes();
    m_announcer.announceRows(monthAndYear(date));
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
    const auto segment = static_cast<NotesSegment>(sender.selectedSegment());
    const QString choice = sender.labelForSegment(sender.selectedSegment());
    switch (segment) {
    case NotesSegment::CurrentMonth: {
        const Date today = DateUtilities::today();
        showNotesForThisMonthYear(today);
        setDateForPrevNextArrows(today);
        break;
    }
    case NotesSegment::All:
        showAllNotes(sender);
        setDateForPrevNextArrows(DateUtilities::today());
        break;
    case NotesSegment::ShownMonth:
        notesForMonthShowing();
        break;
    case NotesSegment::CurrentYear:
        showOnlyCurrentYearNotes();
        setDateForPrevNextArrows(DateUtilities::janFirstThisYear());
        break;
    }
    if (segment != NotesSegment::All) {
        offerAllNotes();
    }
    buttonEnableDisable(*m_ui.deleteRowFromListBtn, false);
    m_announcer.announceRows(choice);
}

/// The list shows a choice: the segment of all notes shows them, instead of hiding them.
void AppDelegate::offerAllNotes()
{
    m_ui.hideShowSegBtn->setLabelForSegment(localized("Show All"), static_cast<int>(NotesSegment::All));
}

/// What the segment of all notes does, whatever it would do now; the page shown stays the page shown.
void AppDelegate::showAllNotesOnPage()
{
    offerAllNotes();
    m_ui.hideShowSegBtn->press(static_cast<int>(NotesSegment::All));
    redrawPage();
}

void AppDelegate::nameSegments()
{
    const QString notesOf = localized("%@ Notes");
    const QString month = filled(notesOf, {DateUtilities::monthNameFromDate(DateUtilities::today())});
    m_ui.hideShowSegBtn->setLabelForSegment(month, static_cast<int>(NotesSegment::CurrentMonth));
    m_ui.hideShowSegBtn->setLabelForSegment(filled(notesOf, {DateUtilities::currentYear()}),
                                            static_cast<int>(NotesSegment::CurrentYear));
}

std::int64_t AppDelegate::visibleRowsForTV(const TableView& tableView) const
{
    const ListBinding* list = listOf(tableView);
    const auto hidden = static_cast<std::int64_t>(tableView.hiddenRowIndexes().size());
    return list ? m_book.rows(list->kind).size() - hidden : 0;
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

ListRow AppDelegate::clickedRow(const ListBinding& list) const
{
    return m_book.row(list.kind, list.view.clickedRow());
}

/// The list that the view shows; null for another view.
const ListBinding* AppDelegate::listOf(const TableView& tableView) const
{
    if (&tableView == &m_notesList.view) {
        return &m_notesList;
    }
    return &tableView == &m_datesList.view ? &m_datesList : nullptr;
}

int AppDelegate::numberOfRowsInTableView(const TableView& tableView)
{
    const ListBinding* list = listOf(tableView);
    return list ? static_cast<int>(m_book.rows(list->kind).size()) : 0;
}

CellView AppDelegate::viewForTableColumn(const TableView& tableView, const TableColumn& column, int row)
{
    const ListBinding* list = listOf(tableView);
    if (!list) {
        return {};
    }
    const ListRow shown = m_book.row(list->kind, row);
    CellView cell;
    if (shows(column, recordKeys(list->kind).text)) {
        cell.text = shownText(shown);
    } else if (shows(column, eventTimeColumn) && shown) {
        cell.text = calcElapsedDate(*shown.element());
    } else if (const std::optional<Date> date = shown.date(); date && shows(column, recordKeys(list->kind).date)) {
        cell.text = m_formatters->listDate.stringFromDate(*date);
        if (list->kind == ListKind::Notes && DateUtilities::isThisDate(*date, DateEnvironment::now())) {
            cell.spokenText = filled(localized("%@, today"), {cell.text});
            cell.textColor = namedColor(u"SystemRedColor", m_window.palette());
        }
    }
    return cell;
}

QString AppDelegate::accessibleEditorName(const TableView& tableView, const TableColumn& column, int row)
{
    const ListBinding* list = listOf(tableView);
    const std::optional<Date> date = list ? m_book.row(list->kind, row).date() : std::nullopt;
    return date ? filled(list->editorName, {SpokenDays().of(*date)})
                : TableViewDelegate::accessibleEditorName(tableView, column, row);
}

double AppDelegate::heightOfRow(const TableView& tableView, int row)
{
    if (const ListBinding* list = listOf(tableView)) {
        const ListRow shown = m_book.row(list->kind, row);
        if (shown.isEmptyList()) {
            return list->lineHeight; // a reminder whose note is gone leaves an empty row
        }
        if (const std::optional<std::string_view> text = shown.text()) {
            return static_cast<double>(countOfLines(*text)) * list->lineHeight;
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
    const ListBinding* list = listOf(tableView);
    std::unique_ptr<Alert> alert =
        copySheetAlertWithErrorString(localized("tableView:heightOfRow failure"), list ? list->name : QString(),
                                      localized("OK"), QStringLiteral(" "));
    alert->setAlertStyle(Alert::Style::Critical);
    Alert::beginSheet(std::move(alert), m_window, [this](int) { m_missingTextReported = false; });
}

std::unique_ptr<TableRowView> AppDelegate::rowViewForRow(const TableView&, int)
{
    return std::make_unique<TableRowView>();
}

bool AppDelegate::shouldEditTableColumn(const TableView& tableView, const TableColumn& /*column*/, int row)
{
    const ListBinding* list = listOf(tableView);
    return list && m_book.takesText(list->kind, row);
}

void AppDelegate::tableViewSelectionDidChange(TableView& tableView)
{
    if (const ListBinding* list = listOf(tableView)) {
        buttonEnableDisable(list->deleteButton, tableView.selectedRow() >= 0);
    }
}

void AppDelegate::tableViewSelectionIsChanging(TableView& tableView)
{
    if (const ListBinding* list = listOf(tableView)) {
        if (list->kind == ListKind::ImportantDates) {
            colorDatePickers();
        }
        buttonEnableDisable(list->deleteButton, true);
    }
}

/// The selected record stays selected, wherever it goes.
void AppDelegate::sortDescriptorsDidChange(TableView& tableView)
{
    const ListBinding* list = listOf(tableView);
    if (!list) {
        return;
    }
    tableView.endEditing();
    const int selected = m_book.sort(list->kind, tableView.sortDescriptors(), tableView.selectedRow());
    if (list->kind == ListKind::Notes) {
        showNotesCount(visibleRowsForTV(tableView));
    }
    tableView.reloadData();
    if (selected >= 0) {
        tableView.selectRow(selected);
        tableView.scrollRowToVisible(selected);
    }
}
