// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

/// Reports that the machine is about to be switched off or restarted. The machine waits until every slot has returned,
/// but no longer than the few seconds that the system allows.
class ShutdownMonitor : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

Q_SIGNALS:
    void machineWillShutDown();
};
