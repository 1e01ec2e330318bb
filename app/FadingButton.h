// SPDX-License-Identifier: MIT
#pragma once

#include <QPushButton>

/// A button that can be made transparent without leaving its place.
class FadingButton : public QPushButton {
    Q_OBJECT

public:
    explicit FadingButton(QWidget* parent = nullptr);

    /// 0 is transparent, 1 opaque. A new button is transparent.
    void setAlpha(double alpha);
    double alpha() const;
};
