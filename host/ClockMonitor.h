// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

/// Tells when the wall clock jumps: the machine woke up, the clock was set, or the time zone changed. The zone in force
/// in the process is the new one by the time that anyone hears of it.
class ClockMonitor : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

Q_SIGNALS:
    void clockJumped();
};
