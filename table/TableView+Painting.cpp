// SPDX-License-Identifier: MIT
#include "look/NamedColor.h"
#include "look/TableMetrics.h"
#include "table/CellEditor.h"
#include "table/TableView.h"
#include "table/TableViewDelegate.h"
#include "text/TextCutting.h"
#include "text/TextLines.h"
#include "text/WritingDirection.h"

#include <QHelpEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>

#include <algorithm>
#include <cmath>

namespace {

/// The part of `line` that fits into `room` points, with an ellipsis when it is shortened. A long line is cut before it
/// is measured, since no visible glyph is narrower than a point.
QString fitted(QStringView line, const QFontMetricsF& metrics, int room)
{
    const QStringView start = beginningOf(line, std::max(room, 0));
    QString text = start.toString();
    text.replace(u'\t', u' ');
    if (start.size() < line.size()) {
        text += u'…';
    }
    return metrics.elidedText(text, Qt::ElideRight, room);
}

} // namespace

void TableView::paintEvent(QPaintEvent* event)
{
    QPainter painter(viewport());
    const QRect exposed = event->rect();
    painter.fillRect(exposed, namedColor(u"ControlBackgroundColor", palette()));
    painter.setFont(cellFont());
    for (int row = rowAt({0, std::max(0, exposed.top())}); hasRow(row); ++row) {
        const QRect rect = rectOfRow(row);
        if (rect.top() > exposed.bottom()) {
            break;
        }
        if (rect.height() > 0) {
            paintRow(painter, row, exposed);
        }
    }
    paintPlaceholder(painter);
}

void TableView::paintRow(QPainter& painter, int row, const QRect& exposed) const
{
    const QRect rect = rectOfRow(row);
    std::unique_ptr<TableRowView> view = m_delegate->rowViewForRow(*this, row);
    if (view) {
        view->setBounds(rect);
        view->setPalette(palette());
        view->setSelectionHighlightStyle(m_highlightStyle);
        if (row == m_selectedRow) {
            view->drawSelectionInRect(painter, rect & exposed);
        }
        view->drawSeparatorInRect(painter, rect & exposed);
    }
    if (row == m_menuRow) { // the row that the open menu refers to
        painter.setPen(namedColor(u"FocusRingColor", palette()));
        painter.drawRect(QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5));
    }
    for (int column = 0; column < static_cast<int>(m_columns.size()); ++column) {
        paintCell(painter, column, row, exposed);
    }
}

void TableView::paintCell(QPainter& painter, int column, int row, const QRect& exposed) const
{
    const QRect cell = rectOfCell(column, row);
    const QRect shown = cell & exposed;
    if (shown.isEmpty()) {
        return;
    }
    if (const QWidget* editor = viewAt(column, row)) {
        if (editor == textEditor()) {
            painter.fillRect(shown, namedColor(u"ControlBackgroundColor", palette()));
        }
        return; // a custom control is drawn on the row's own background
    }
    const CellView view = cellView(column, row);
    const bool highlighted = row == m_selectedRow && m_highlightStyle != SelectionHighlightStyle::None;
    const QColor own = view.textColor.isValid() ? view.textColor : namedColor(u"ControlTextColor", palette());
    painter.setPen(highlighted ? namedColor(u"TableRowSelectedTextColor", palette()) : own);

    const QFontMetricsF metrics(painter.font());
    const QRect room = cell.adjusted(cellPadding, 0, -cellPadding, 0);
    const int first = std::max(0, static_cast<int>((shown.top() - cell.top()) / m_lineHeight));
    const int last = static_cast<int>((shown.bottom() - cell.top()) / m_lineHeight);
    double baseline = cell.top() + first * m_lineHeight + baselineInLine(painter.font(), m_lineHeight);

    painter.save();
    painter.setClipRect(shown);
    for (const QStringView line : linesOf(view.text, first, last - first + 1)) {
        const QString text = fitted(line, metrics, room.width());
        const Qt::LayoutDirection direction = writingDirection(text, layoutDirection());
        painter.setLayoutDirection(direction);
        const double x =
            direction == Qt::RightToLeft ? room.right() + 1 - metrics.horizontalAdvance(text) : room.left();
        painter.drawText(QPointF(x, baseline), text);
        baseline += m_lineHeight;
    }
    painter.restore();
}

void TableView::paintPlaceholder(QPainter& painter) const
{
    if (m_heights.total() > 0.0 || m_placeholderText.isEmpty()) {
        return;
    }
    painter.setPen(namedColor(u"SecondaryLabelColor", palette()));
    painter.drawText(viewport()->rect().adjusted(cellPadding, 0, -cellPadding, 0),
                     static_cast<int>(Qt::AlignCenter | Qt::TextWordWrap), m_placeholderText);
}

void TableView::showToolTip(QHelpEvent& event) const
{
    const int row = rowAt(event.pos());
    const int column = columnAt(event.pos());
    if (row < 0 || column < 0) {
        QToolTip::hideText();
        return;
    }
    const QString text = cellView(column, row).text;
    const QFontMetricsF metrics(cellFont());
    const QRect cell = rectOfCell(column, row);
    const int room = std::max(cell.width() - 2 * cellPadding, 0);
    const int visible = static_cast<int>(viewport()->height() / m_lineHeight) + 1;
    const auto lines = linesOf(text, 0, visible);
    const bool shortened = std::any_of(lines.begin(), lines.end(), [&](QStringView line) {
        return metrics.horizontalAdvance(beginningOf(line, room + 1).toString()) > room;
    });
    QToolTip::showText(event.globalPos(), shortened ? plainToolTip(text) : QString(), viewport(), cell);
}
