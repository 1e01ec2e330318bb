// SPDX-License-Identifier: MIT
#pragma once

#include <QScrollArea>

/// Shows what it holds as large as that likes to be, and scrolls only where there is no room for the least size of it,
/// so that large texts fit a small screen. It cannot be seen itself.
class FittingScrollArea : public QScrollArea {
    Q_OBJECT

public:
    explicit FittingScrollArea(QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QSize besides() const;
};

/// Has the content of a laid-out widget scroll where there is no room for it.
void makeScrollable(QWidget& page);
