// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include <map>

/// Makes a screen reader announce changes away from the control with the focus: the month that was stepped to, the
/// number of notes that a search found. It is never visible.
///
/// To assistive technologies it is a notification whose name is the newest announcement and which is shown again each
/// time. Every reader reads that out, even one that does not support announcements.
class Announcer : public QWidget {
    Q_OBJECT

public:
    explicit Announcer(QWidget& window);

    /// Announces `text` once the present event has been handled, so that a focus change in it does not interrupt the
    /// announcement. Texts of different kinds from one event are announced together; of several of one kind only the
    /// last, since the others are outdated by then.
    enum class Kind { Page, Rows };
    void announce(Kind kind, const QString& text);

    /// The last announcement.
    QString announcement() const { return m_said; }

private:
    void say();

    std::map<Kind, QString> m_waiting;
    QString m_said;
};
