// SPDX-License-Identifier: MIT
#include "calendar/DayButton.h"

#include <QFontInfo>
#include <QPainter>

namespace {

constexpr double sideShare = 2.6; ///< relative to the text size
constexpr qreal inset = 2;
constexpr qreal noteDot = 4; ///< diameter of the mark below the number of a day with a note
// Pale enough, even together, to keep today's red legible.
constexpr float noteFill = 0.18F;  ///< share of the accent colour behind a day with a note
constexpr float hoverFill = 0.04F; ///< share of the text colour under the pointer
constexpr float pressedFill = 0.07F;

QColor withAlpha(QColor color, float alpha)
{
    color.setAlphaF(alpha);
    return color;
}

} // namespace

DayButton::DayButton(QWidget* parent) : QAbstractButton(parent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void DayButton::setTitle(const QString& title)
{
    setText(title);
    setTitleColor({});
}

void DayButton::setState(State state)
{
    m_state = state;
    update();
}

void DayButton::setTransparent(bool transparent)
{
    m_transparent = transparent;
    update();
}

void DayButton::setTitleColor(const QColor& color)
{
    m_titleColor = color;
    update();
}

QSize DayButton::sizeHint() const
{
    const int side = qRound(QFontInfo(font()).pixelSize() * sideShare);
    return {side, side};
}

QSize DayButton::minimumSizeHint() const
{
    const int side = fontMetrics().height() + qRound(2 * inset);
    return {side, side};
}

void DayButton::paintEvent(QPaintEvent*)
{
    if (m_transparent) {
        return;
    }
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal diameter = std::min(width(), height()) - 2 * inset;
    QRectF circle(0, 0, diameter, diameter);
    circle.moveCenter(QRectF(rect()).center());

    painter.setPen(Qt::NoPen);
    if (m_state == On) {
        painter.setBrush(withAlpha(palette().color(QPalette::Highlight), noteFill));
        painter.drawEllipse(circle);
    }
    if (m_hovered || isDown()) {
        painter.setBrush(withAlpha(palette().color(QPalette::Text), isDown() ? pressedFill : hoverFill));
        painter.drawEllipse(circle);
    }
    if (hasFocus()) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
        painter.drawEllipse(circle);
    }

    QFont titleFont = font();
    titleFont.setBold(m_state == On || m_titleColor.isValid());
    if (m_state == On) {
        // The circle is too pale for everyone to notice; this mark is not. In a small circle it moves below the digits.
        const QFontMetricsF metrics(titleFont);
        const qreal belowDigits = circle.center().y() - metrics.height() / 2 + metrics.ascent() + 1 + noteDot / 2;
        const qreal middle = std::min(std::max(circle.bottom() - noteDot, belowDigits), height() - noteDot / 2);
        painter.setPen(Qt::NoPen);
        painter.setBrush(palette().link());
        painter.drawEllipse(QPointF(circle.center().x(), middle), noteDot / 2, noteDot / 2);
    }

    painter.setFont(titleFont);
    painter.setPen(m_titleColor.isValid() ? m_titleColor : palette().color(QPalette::Text));
    painter.drawText(rect(), Qt::AlignCenter, text());
}

void DayButton::enterEvent(QEnterEvent* event)
{
    m_hovered = true;
    update();
    QAbstractButton::enterEvent(event);
}

void DayButton::leaveEvent(QEvent* event)
{
    m_hovered = false;
    update();
    QAbstractButton::leaveEvent(event);
}
