// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

/// Reports when the wall clock jumps: the machine woke up, the clock was set, or the time zone changed. By then the
/// process already uses the new zone.
class ClockMonitor : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

Q_SIGNALS:
    void clockJumped();
};
