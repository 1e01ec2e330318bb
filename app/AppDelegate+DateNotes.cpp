// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"
#include "dates/DateUtilities.h"
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
constexpr qsizetype datesItemCount = 3;

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
    for (qsizetype item = 0; item < datesItemCount; ++item) {
        QAction* action = m_importantDatesContextMenu->addAction(QString());
        connect(action, &QAction::triggered, this, [this, action] { importantDatesRespondToContextMenu(*action); });
    }
    connect(m_importantDatesContextMenu, &QMenu::aboutToShow, this,
            [this] { menuNeedsUpdate(*m_importantDatesContextMenu); });
    m_ui.importantDatesTableView->setMenu(m_importantDatesContextMenu);
}

/// The date of the row that was clicked; empty when it was none, or has no day.
ListRow AppDelegate::clickedEvent() const
{
    const ListRow event = m_book.row(ListKind::ImportantDates, m_ui.importantDatesTableView->clickedRow());
    return event.date() ? event : ListRow();
}

void AppDelegate::updateImportantDatesContextMenu()
{
    const QList<QAction*> items = m_importantDatesContextMenu->actions();
    const ListRow event = clickedEvent();
    const bool isThere(event);
    items.at(headingItem)->setEnabled(!isThere);
    items.at(ownDayItem)->setEnabled(isThere);
    items.at(thisYearItem)->setEnabled(isThere);
    const QString addNote = localized("Add a note or update an existing note's description for this date: %@");
    if (!isThere) {
        items.at(headingItem)->setText(localized("Please select a row with an Important Date on it"));
        items.at(ownDayItem)->setText(filled(addNote, {QStringLiteral("…")}));
        items.at(thisYearItem)->setText(items.at(ownDayItem)->text());
        return;
    }
    const Date date = *event.date();
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
    const ListRow event = clickedEvent();
    if (!event || (item != ownDayItem && item != thisYearItem)) {
        return;
    }
    const std::string name = event.text() ? *event.text() : std::string();
    const Date date = item == ownDayItem ? *event.date() : inCurrentYear(*event.date());

    m_ui.notesTableView->endEditing(); // before its rows change
    if (m_book.addLine(date, name)) {
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
    if (!m_book.hasWaitingLines() || !allNotesTVData) {
        return;
    }
    if (const std::optional<DatedText> edited = noteInEditor()) {
        takeIntoEditor(*edited);
    }
    for (const Date date : m_book.takeInLines()) {
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

/// An editor would write over the lines that its note gets meanwhile, so they come into its text. Where it shows
/// something else than the saved note, it ends instead.
void AppDelegate::takeIntoEditor(const DatedText& edited)
{
    const std::optional<std::string> whole = m_book.textWithWaitingLines(edited);
    auto* const editor = m_ui.notesTableView->findChild<CellEditor*>();
    if (!whole || !editor) {
        return;
    }
    if (!whole->starts_with(edited.text)) {
        m_ui.notesTableView->endEditing();
        return;
    }
    editor->addAtEnd(QString::fromStdString(whole->substr(edited.text.size())));
    m_book.beginEditAnew();
}
