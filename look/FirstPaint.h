// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

class QWidget;

/// Reports the first painting of a window, for work that should not delay it. A window that starts minimised paints
/// nothing.
class FirstPaint : public QObject {
    Q_OBJECT

public:
    /// Owned by the window; deletes itself after the report.
    explicit FirstPaint(QWidget& window);

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    void painted();
};
