// SPDX-License-Identifier: MIT
#include "widgets/ReminderMenu.h"

#include "text/Localized.h"

ReminderMenu::ReminderMenu(QWidget* parent)
    : QMenu(parent), m_information(addAction(QString())), m_reminder(addAction(QString()))
{
    connect(m_reminder, &QAction::triggered, this, [this] { Q_EMIT reminderWanted(*m_reminder); });
}

void ReminderMenu::refuse(const QString& reason)
{
    m_information->setText(reason);
    m_information->setEnabled(true);
    m_reminder->setText(QString());
    m_reminder->setEnabled(false);
    m_reminder->setVisible(false);
}

void ReminderMenu::offer(const QString& date)
{
    m_information->setText(filled(localized("%@ has been selected. Choose an option below to continue."), {date}));
    m_information->setEnabled(false);
    m_reminder->setText(
        filled(localized("Remind me about this note via the System Notification Center on: %@"), {date}));
    m_reminder->setEnabled(true);
    m_reminder->setVisible(true);
}
