// SPDX-License-Identifier: MIT
#pragma once

#include <QScrollArea>

/// Shows its content at its preferred size, and scrolls only when there is no room for its least size, so that large
/// texts fit a small screen. The area itself is invisible.
class FittingScrollArea : public QScrollArea {
    Q_OBJECT

public:
    explicit FittingScrollArea(QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QSize scrollBarRoom() const;
};

/// Makes the content of a laid-out widget scroll when there is no room for it.
void makeScrollable(QWidget& page);
