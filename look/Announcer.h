// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include <map>

/// Has a screen reader say what changed elsewhere than at the control with the keyboard: a month that was stepped to,
/// how many notes a search found. It is never seen.
///
/// For a screen reader it is a notification whose name is the newest announcement and which shows itself anew each
/// time: that is read out by every reader, also by those that know of no announcements.
class Announcer : public QWidget {
    Q_OBJECT

public:
    explicit Announcer(QWidget& window);

    /// Has `text` said once the event in hand is dealt with, so that a focus that this event moves does not cut it
    /// short. What one event announces is said as one; of several texts of one kind only the last, the others being
    /// untrue by then.
    enum class Kind { Page, Rows };
    void announce(Kind kind, const QString& text);

    /// What was said last.
    QString announcement() const { return m_said; }

private:
    void say();

    std::map<Kind, QString> m_waiting;
    QString m_said;
};
