// SPDX-License-Identifier: MIT
#include "calendar/DayNumber.h"

#include "look/NamedColor.h"
#include "look/SpokenName.h"
#include "text/Localized.h"

#include <QPainter>
#include <QStyle>

DayNumber::DayNumber(QWidget* parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
}

void DayNumber::setToday(bool today)
{
    setSpokenName(*this, today ? filled(localized("%@, today"), {text()}) : QString());
    if (today == m_today) {
        return;
    }
    m_today = today;
    QFont digits = font();
    digits.setBold(today);
    setFont(digits);
    update();
}

QColor DayNumber::textColor() const
{
    // A label's own palette has no ground, because the style rules give labels none.
    return namedColor(m_today ? u"SystemRedColor" : u"ControlTextColor", parentWidget()->palette());
}

void DayNumber::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setPen(textColor());
    painter.drawText(contentsRect(), static_cast<int>(QStyle::visualAlignment(layoutDirection(), alignment())), text());
}
