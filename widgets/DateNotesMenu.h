// SPDX-License-Identifier: MIT
#pragma once

#include <QMenu>

#include <optional>

/// The context menu of an important date: a heading, and two items that add its description to a note, that of its own
/// day and that of the same day this year.
class DateNotesMenu : public QMenu {
    Q_OBJECT

public:
    enum class Choice { OwnDay, ThisYear };

    explicit DateNotesMenu(QWidget* parent);

    /// No important date was clicked.
    void refuse();

    /// The two days as texts.
    void offer(const QString& ownDay, const QString& thisYear);

    /// What an item of this menu is for; nullopt for the heading, and for an item of another menu.
    std::optional<Choice> choiceOf(const QAction& item) const;

Q_SIGNALS:
    void chosen(const QAction& item);

private:
    QAction* addItem();

    QAction* m_heading; ///< the menu's, and the next
    QAction* m_ownDay;
    QAction* m_thisYear;
};
