// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"
#include "calendar/SpokenDays.h"
#include "look/Announcer.h"
#include "table/TableView.h"
#include "text/Localized.h"
#include "ui_MainWindow.h"

#include <QLabel>

QString AppDelegate::accessibleEditorName(const TableView& tableView, const TableColumn& column, int row)
{
    const ListBinding* list = listOf(tableView);
    const std::optional<Date> date = list ? m_book.row(list->kind, row).date() : std::nullopt;
    return date ? filled(list->editorName, {SpokenDays().of(*date)})
                : TableViewDelegate::accessibleEditorName(tableView, column, row);
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
