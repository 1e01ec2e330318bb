// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

/// Tells that the machine is about to be switched off or restarted. It goes on only after everybody who heard of it has
/// returned, or after the few seconds that the system allows.
class ShutdownMonitor : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

Q_SIGNALS:
    void machineWillShutDown();
};
