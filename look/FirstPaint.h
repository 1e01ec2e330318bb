// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

class QWidget;

/// Tells once that a window is about to paint its first picture, for what had better come after it. A window that
/// starts minimised paints none.
class FirstPaint : public QObject {
    Q_OBJECT

public:
    /// Belongs to the window, until it has told.
    explicit FirstPaint(QWidget& window);

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    void painted();
};
