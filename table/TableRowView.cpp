// SPDX-License-Identifier: MIT
#include "table/TableRowView.h"

#include "look/NamedColor.h"

#include <QPainter>

void TableRowView::drawSelectionInRect(QPainter& painter, const QRectF& /*rect*/) const
{
    if (m_style == SelectionHighlightStyle::None) {
        return;
    }
    painter.fillRect(m_bounds, namedColor(u"TableRowSelectionColor", m_palette));
}

void TableRowView::drawSeparatorInRect(QPainter& painter, const QRectF& rect) const
{
    const double hairline = 1.0 / painter.device()->devicePixelRatio();
    const QRectF line(m_bounds.left(), m_bounds.bottom() - hairline, m_bounds.width(), hairline);
    painter.fillRect(line & rect, namedColor(u"SeparatorColor", m_palette));
}
