// SPDX-License-Identifier: MIT
#pragma once

#include <QMenu>

/// The context menu of a note: either a line that says why no reminder can be scheduled, or a heading and the item that
/// schedules one.
class ReminderMenu : public QMenu {
    Q_OBJECT

public:
    explicit ReminderMenu(QWidget* parent);

    void refuse(const QString& reason);

    /// `date` is the note's date as text.
    void offer(const QString& date);

Q_SIGNALS:
    void reminderWanted(const QAction& item);

private:
    QAction* m_information; ///< the menu's, and the next
    QAction* m_reminder;
};
