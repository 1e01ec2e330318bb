// SPDX-License-Identifier: MIT
#include "table/TableHeaderView.h"

#include "look/NamedColor.h"
#include "look/TableMetrics.h"
#include "table/TableView.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QScrollBar>
#include <QToolTip>

#include <algorithm>
#include <cstdlib>

namespace {

constexpr int headerHeight = 24;
constexpr int gripReach = 4; ///< how far from a column's edge the pointer can grip it

} // namespace

TableHeaderView::TableHeaderView(TableView& table) : QWidget(&table), m_table(table)
{
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

QSize TableHeaderView::sizeHint() const
{
    const int text = QFontMetrics(HeaderCell::font()).height() + 6;
    return {0, std::max(headerHeight, text)};
}

QRect TableHeaderView::sectionRect(int column) const
{
    const ColumnSpan& span = m_table.m_columnSpans[static_cast<std::size_t>(column)];
    return {span.left - m_table.contentsX(), 0, span.width, height()};
}

int TableHeaderView::columnAt(QPoint position) const
{
    return m_table.columnAt({position.x(), 0});
}

int TableHeaderView::resizableColumnAt(QPoint position) const
{
    const auto& columns = m_table.tableColumns();
    for (int column = 0; column < static_cast<int>(columns.size()); ++column) {
        const QRect section = sectionRect(column);
        const int edge = isRightToLeft() ? section.left() : section.right() + 1;
        if (!columns[static_cast<std::size_t>(column)].stretches && std::abs(position.x() - edge) <= gripReach) {
            return column;
        }
    }
    return -1;
}

bool TableHeaderView::isSortable(int column) const
{
    return column >= 0 && m_table.tableColumns()[static_cast<std::size_t>(column)].sortDescriptorPrototype.has_value();
}

bool TableHeaderView::event(QEvent* event)
{
    if (event->type() == QEvent::ToolTip) {
        const QPoint position = static_cast<QHelpEvent*>(event)->pos();
        const int column = columnAt(position);
        const QString title =
            column < 0 ? QString() : m_table.tableColumns()[static_cast<std::size_t>(column)].headerCell.title();
        const bool shortened = column >= 0 && elidedTitle(column) != title;
        QToolTip::showText(mapToGlobal(position), shortened ? plainToolTip(title) : QString(), this);
        return true;
    }
    return QWidget::event(event);
}

void TableHeaderView::leaveEvent(QEvent* /*event*/)
{
    m_hoveredColumn = -1;
    update();
}

void TableHeaderView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        return;
    }
    if (const int column = resizableColumnAt(event->pos()); column >= 0) {
        m_resizing = Resizing{column, event->pos().x(), static_cast<double>(sectionRect(column).width())};
        return;
    }
    m_pressedColumn = columnAt(event->pos());
    update();
}

void TableHeaderView::mouseMoveEvent(QMouseEvent* event)
{
    if (m_resizing) {
        const int moved = event->pos().x() - m_resizing->startX;
        m_table.setColumnWidth(m_resizing->column, m_resizing->startWidth + (isRightToLeft() ? -moved : moved));
        return;
    }
    m_hoveredColumn = columnAt(event->pos());
    setCursor(resizableColumnAt(event->pos()) >= 0 ? Qt::SplitHCursor : Qt::ArrowCursor);
    update();
}

void TableHeaderView::mouseReleaseEvent(QMouseEvent* event)
{
    const int column = std::exchange(m_pressedColumn, -1);
    const bool wasResizing = m_resizing.has_value();
    m_resizing.reset();
    update();
    if (!wasResizing && column >= 0 && event->button() == Qt::LeftButton && rect().contains(event->pos()) &&
        columnAt(event->pos()) == column) {
        m_table.sortByColumn(column);
    }
}

void TableHeaderView::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.fillRect(rect(), namedColor(u"HeaderBackgroundColor", palette()));
    for (int column = 0; column < static_cast<int>(m_table.tableColumns().size()); ++column) {
        paintSection(painter, column);
    }
    const double hairline = 1.0 / devicePixelRatioF();
    painter.fillRect(QRectF(0, height() - hairline, width(), hairline), namedColor(u"SeparatorColor", palette()));
}

QString TableHeaderView::elidedTitle(int column) const
{
    const QString& title = m_table.tableColumns()[static_cast<std::size_t>(column)].headerCell.title();
    const int room = sectionRect(column).width() - 2 * cellPadding - (isSortable(column) ? sortIndicatorRoom : 0);
    return QFontMetrics(HeaderCell::font()).elidedText(title, Qt::ElideRight, room);
}

void TableHeaderView::paintSection(QPainter& painter, int column) const
{
    const QRect section = sectionRect(column);
    const QColor text = namedColor(u"ControlTextColor", palette());
    if (isSortable(column) && (column == m_pressedColumn || column == m_hoveredColumn)) {
        QColor veil = text;
        veil.setAlphaF(column == m_pressedColumn ? 0.10F : 0.04F);
        painter.fillRect(section, veil);
    }
    const double hairline = 1.0 / devicePixelRatioF();
    const double edge = isRightToLeft() ? section.left() : section.left() + section.width() - hairline;
    if (column + 1 < static_cast<int>(m_table.tableColumns().size())) {
        painter.fillRect(QRectF(edge, 6, hairline, height() - 12), namedColor(u"SeparatorColor", palette()));
    }

    painter.setFont(HeaderCell::font());
    painter.setPen(text);
    const QRect room = section.adjusted(cellPadding, 0, -cellPadding, 0);
    const Qt::Alignment leading = isRightToLeft() ? Qt::AlignRight : Qt::AlignLeft;
    painter.drawText(room, static_cast<int>(leading | Qt::AlignVCenter | Qt::AlignAbsolute | Qt::TextSingleLine),
                     elidedTitle(column));
    paintSortIndicator(painter, column);
}

void TableHeaderView::paintSortIndicator(QPainter& painter, int column) const
{
    const auto& prototype = m_table.tableColumns()[static_cast<std::size_t>(column)].sortDescriptorPrototype;
    const auto& descriptors = m_table.sortDescriptors();
    if (!prototype || descriptors.empty() || descriptors.front().key != prototype->key) {
        return;
    }
    const QRect section = sectionRect(column);
    const double x = isRightToLeft() ? section.left() + cellPadding + 4 : section.right() - cellPadding - 3;
    const double y = height() / 2.0;
    const double tip = descriptors.front().order == SortOrder::Ascending ? -2.0 : 2.0;
    QPainterPath chevron(QPointF(x - 4, y - tip));
    chevron.lineTo(x, y + tip);
    chevron.lineTo(x + 4, y - tip);

    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(
        QPen(namedColor(u"SecondaryLabelColor", palette()), 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(chevron);
    painter.restore();
}
