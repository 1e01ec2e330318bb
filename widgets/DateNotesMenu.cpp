// SPDX-License-Identifier: MIT
#include "widgets/DateNotesMenu.h"

#include "text/Localized.h"

namespace {

QString addNoteTitle(const QString& date)
{
    return filled(localized("Add a note or update an existing note's description for this date: %@"), {date});
}

} // namespace

DateNotesMenu::DateNotesMenu(QWidget* parent)
    : QMenu(parent), m_heading(addItem()), m_ownDay(addItem()), m_thisYear(addItem())
{
}

QAction* DateNotesMenu::addItem()
{
    QAction* item = addAction(QString());
    connect(item, &QAction::triggered, this, [this, item] { Q_EMIT chosen(*item); });
    return item;
}

void DateNotesMenu::refuse()
{
    m_heading->setText(localized("Please select a row with an Important Date on it"));
    m_heading->setEnabled(true);
    for (QAction* item : {m_ownDay, m_thisYear}) {
        item->setText(addNoteTitle(QStringLiteral("…")));
        item->setEnabled(false);
    }
}

void DateNotesMenu::offer(const QString& ownDay, const QString& thisYear)
{
    m_heading->setText(filled(localized("%@ has been selected. Choose an option below to continue."), {ownDay}));
    m_heading->setEnabled(false);
    m_ownDay->setText(addNoteTitle(ownDay));
    m_thisYear->setText(addNoteTitle(thisYear));
    for (QAction* item : {m_ownDay, m_thisYear}) {
        item->setEnabled(true);
    }
}

std::optional<DateNotesMenu::Choice> DateNotesMenu::choiceOf(const QAction& item) const
{
    if (&item == m_ownDay) {
        return Choice::OwnDay;
    }
    return &item == m_thisYear ? std::optional(Choice::ThisYear) : std::nullopt;
}
