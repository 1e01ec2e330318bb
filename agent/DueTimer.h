// SPDX-License-Identifier: MIT
#pragma once

#include "dates/Date.h"

#include <QObject>
#include <QSocketNotifier>

#include <memory>
#include <optional>

/// Sleeps until an instant of the wall clock, however that clock gets there: by itself, by being set, or by the
/// machine waking up. Nothing runs before.
class DueTimer : public QObject {
    Q_OBJECT

public:
    explicit DueTimer(QObject* parent = nullptr);
    ~DueTimer() override;

    /// From here on waits for `moment`, or for none.
    void waitFor(std::optional<Date> moment);

Q_SIGNALS:
    /// The moment has come, or the clock was set: see what is due and call `waitFor` again.
    void woken();

private:
    int m_timer; ///< a timerfd; -1 where the kernel gives none
    std::unique_ptr<QSocketNotifier> m_notifier;
};
