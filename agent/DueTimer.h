// SPDX-License-Identifier: MIT
#pragma once

#include "dates/Date.h"

#include <QObject>
#include <QSocketNotifier>

#include <memory>
#include <optional>

/// Sleeps until an instant of the wall clock, whether the clock reaches it by running, by being set or by the machine
/// waking up. Uses no time until then.
class DueTimer : public QObject {
    Q_OBJECT

public:
    explicit DueTimer(QObject* parent = nullptr);
    ~DueTimer() override;

    /// Waits for `moment`, or for nothing, from now on.
    void waitFor(std::optional<Date> moment);

Q_SIGNALS:
    /// The moment has come or the clock was set: check what is due and call `waitFor` again.
    void woken();

private:
    int m_timer; ///< a timerfd; -1 when the kernel provides none
    std::unique_ptr<QSocketNotifier> m_notifier;
};
