// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"
#include "calendar/SpokenDays.h"
#include "look/Announcer.h"
#include "notes/NoteQueries.h"
#include "table/TableView.h"
#include "text/Localized.h"
#include "ui_MainWindow.h"

#include <QLabel>

QString AppDelegate::accessibleEditorName(const TableView& tableView, const TableColumn& column, int row)
{
    const bool isNote = &tableView == m_ui.notesTableView;
    const std::optional<Table>& table = isNote ? notesTVData : eventsTVData;
    const Value* record = table && row >= 0 && row < table->size() ? NoteQueries::recordOf(table->at(row)) : nullptr;
    const std::optional<Date> date = record ? dateOf(*record, isNote ? NoteDateKey : EventDateKey) : std::nullopt;
    if (!date) {
        return TableViewDelegate::accessibleEditorName(tableView, column, row);
    }
    return filled(isNote ? localized("Note of %@") : localized("Description of %@"), {SpokenDays().of(*date)});
}

void AppDelegate::announceMonthOfMiniCal()
{
    m_announcer->announce(Announcer::Kind::Page,
                          filled(QStringLiteral("%@ %@"), {m_ui.miniCalMonthName->text(), m_ui.miniCalYear->text()}));
}

void AppDelegate::announceWeek()
{
    m_announcer->announce(
        Announcer::Kind::Page,
        filled(QStringLiteral("%@ %@"), {m_ui.weeklyViewStartingDateMsg->text(), m_ui.weeklyViewStartingDate->text()}));
}

void AppDelegate::announceMonthOfPage()
{
    m_announcer->announce(Announcer::Kind::Page, m_ui.monthlyViewMonthYear->text());
}

void AppDelegate::announcePage(const QWidget& page)
{
    if (&page == m_ui.weeklyViewPage) {
        announceWeek();
    } else if (&page == m_ui.monthlyViewPage) {
        announceMonthOfPage();
    }
}

void AppDelegate::announceFoundNotes()
{
    m_announcer->announce(Announcer::Kind::Rows,
                          filled(localized("Notes found: %@"), {QString::number(m_ui.notesTableView->numberOfRows())}));
}

void AppDelegate::announceRows(const QString& choice)
{
    m_announcer->announce(
        Announcer::Kind::Rows,
        filled(localized("%@. Notes in the list: %@"), {choice, QString::number(m_ui.notesTableView->numberOfRows())}));
}
