// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>
#include <QColor>

/// A day of the mini calendar. Its title is the day's number; a blank cell has an empty title and is transparent.
class DayButton : public QAbstractButton {
    Q_OBJECT

public:
    enum State { Off = 0, On = 1 }; ///< on: the day has a note

    explicit DayButton(QWidget* parent = nullptr);

    /// Sets the title and resets its colour.
    void setTitle(const QString& title);
    QString title() const { return text(); }

    void setState(State state);
    State state() const { return m_state; }

    void setTransparent(bool transparent);
    bool isTransparent() const { return m_transparent; }

    /// An invalid colour means the usual title colour.
    void setTitleColor(const QColor& color);
    QColor titleColor() const { return m_titleColor; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    State m_state = Off;
    bool m_transparent = false;
    bool m_hovered = false;
    QColor m_titleColor;
};
