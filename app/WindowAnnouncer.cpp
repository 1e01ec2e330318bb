// SPDX-License-Identifier: MIT
#include "app/WindowAnnouncer.h"

#include "text/Localized.h"
#include "ui_MainWindow.h"

#include <QLabel>
#include <QMainWindow>

WindowAnnouncer::WindowAnnouncer(QMainWindow& window, const Ui::MainWindow& layout)
    : m_ui(layout), m_announcer(*new Announcer(window))
{
}

void WindowAnnouncer::announceMonthOfMiniCal()
{
    m_announcer.announce(Announcer::Kind::Page,
                         filled(QStringLiteral("%@ %@"), {m_ui.miniCalMonthName->text(), m_ui.miniCalYear->text()}));
}

void WindowAnnouncer::announceWeek()
{
    m_announcer.announce(Announcer::Kind::Page, filled(QStringLiteral("%@ %@"), {m_ui.weeklyViewStartingDateMsg->text(),
                                                                                 m_ui.weeklyViewStartingDate->text()}));
}

void WindowAnnouncer::announceMonthOfPage()
{
    m_announcer.announce(Announcer::Kind::Page, m_ui.monthlyViewMonthYear->text());
}

void WindowAnnouncer::announcePage(const QWidget& page)
{
    if (&page == m_ui.weeklyViewPage) {
        announceWeek();
    } else if (&page == m_ui.monthlyViewPage) {
        announceMonthOfPage();
    }
}

void WindowAnnouncer::announceFoundNotes()
{
    m_announcer.announce(Announcer::Kind::Rows,
                         filled(localized("Notes found: %@"), {QString::number(m_ui.notesTableView->numberOfRows())}));
}

void WindowAnnouncer::announceRows(const QString& choice)
{
    m_announcer.announce(Announcer::Kind::Rows, filled(localized("%@. Notes in the list: %@"),
                                                       {choice, QString::number(m_ui.notesTableView->numberOfRows())}));
}
