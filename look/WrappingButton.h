// SPDX-License-Identifier: MIT
#pragma once

#include <QPushButton>

/// A button whose title wraps when it is too long for the button's width.
class WrappingButton : public QPushButton {
    Q_OBJECT

public:
    WrappingButton(const QString& title, QWidget* parent);

    /// As wide as the longest word requires.
    QSize minimumSizeHint() const override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QSize edges() const; ///< what surrounds the title, both sides together
};
