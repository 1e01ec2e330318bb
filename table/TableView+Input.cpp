// SPDX-License-Identifier: MIT
#include "look/FocusRing.h"
#include "table/TableAccessible.h"
#include "table/TableHeaderView.h"
#include "table/TableView.h"
#include "table/TableViewDelegate.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QScrollBar>

#include <algorithm>

bool TableView::viewportEvent(QEvent* event)
{
    if (event->type() == QEvent::ToolTip) {
        showToolTip(static_cast<QHelpEvent&>(*event));
        return true;
    }
    return QAbstractScrollArea::viewportEvent(event);
}

void TableView::changeEvent(QEvent* event)
{
    QAbstractScrollArea::changeEvent(event);
    switch (event->type()) {
    case QEvent::FontChange:
    case QEvent::LayoutDirectionChange:
    case QEvent::PaletteChange:
    case QEvent::StyleChange:
        layoutContents();
        break;
    default:
        break;
    }
}

void TableView::resizeEvent(QResizeEvent* event)
{
    QAbstractScrollArea::resizeEvent(event);
    layoutContents();
}

void TableView::scrollContentsBy(int /*dx*/, int dy)
{
    if (dy == 0) {
        m_header->update();
    }
    viewport()->update();
    layoutEditor();
}

void TableView::focusInEvent(QFocusEvent* event)
{
    QAbstractScrollArea::focusInEvent(event);
    m_focusRing->show();
    m_focusRing->raise();
    // Deferred, because the window reports the table itself after this event, and screen readers say what was reported
    // last.
    QMetaObject::invokeMethod(
        this, [this] { TableAccessible::tellFocus(*this); }, Qt::QueuedConnection);
}

void TableView::focusOutEvent(QFocusEvent* event)
{
    QAbstractScrollArea::focusOutEvent(event);
    m_focusRing->hide();
}

// The pointer

TableView::Cell TableView::cellAt(QPoint position) const
{
    return {columnAt(position), rowAt(position)};
}

void TableView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        return;
    }
    endEditing();
    m_pressed = cellAt(event->pos());
    if (hasRow(m_pressed.row)) {
        select(m_pressed.row, Origin::User);
    }
}

void TableView::mouseReleaseEvent(QMouseEvent* event)
{
    const Cell cell = std::exchange(m_pressed, {});
    if (event->button() == Qt::LeftButton && hasRow(cell.row) && cellAt(event->pos()) == cell) {
        beginEdit(cell, event->pos());
    }
}

void TableView::mouseDoubleClickEvent(QMouseEvent* event)
{
    mousePressEvent(event);
}

// The context menu

void TableView::contextMenuEvent(QContextMenuEvent* event)
{
    if (event->reason() == QContextMenuEvent::Keyboard) {
        const QRect rect = rectOfRow(m_selectedRow) & viewport()->rect();
        openMenu(m_selectedRow, viewport()->mapToGlobal(rect.isEmpty() ? QPoint() : rect.center()));
        return;
    }
    openMenu(rowAt(viewport()->mapFromGlobal(event->globalPos())), event->globalPos());
}

void TableView::openMenu(int row, QPoint globalPosition)
{
    m_clickedRow = row;
    if (!m_menu) {
        return;
    }
    m_menuRow = row;
    viewport()->update();
    connect(
        m_menu, &QMenu::aboutToHide, this,
        [this] {
            m_menuRow = -1;
            viewport()->update();
        },
        Qt::SingleShotConnection);
    m_menu->popup(globalPosition);
}

// Keys

void TableView::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Copy)) {
        copy();
        return;
    }
    const bool starts = event->key() == Qt::Key_F2 || event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (starts && hasRow(m_selectedRow) && isEditable(spokenColumn())) {
        editColumn(spokenColumn(), m_selectedRow);
        return;
    }
    if (!moveSelection(*event)) {
        event->ignore(); // leaves it to the window
    }
}

/// The first row from `row` on, in steps of `step`, that is not hidden; -1 when there is none.
int TableView::visibleRowFrom(int row, int step) const
{
    while (hasRow(row) && m_hiddenRows.contains(row)) {
        row += step;
    }
    return hasRow(row) ? row : -1;
}

/// The row above or below the selected one or, without a selection, the place where the keys resume.
int TableView::rowBeside(int direction) const
{
    if (hasRow(m_selectedRow)) {
        return m_selectedRow + direction;
    }
    const int last = numberOfRows() - 1;
    if (m_resumeRow < 0) {
        return direction > 0 ? 0 : last;
    }
    return std::clamp(direction > 0 ? m_resumeRow : m_resumeRow - 1, 0, std::max(last, 0));
}

int TableView::rowPageAway(int direction) const
{
    if (!hasRow(m_selectedRow)) {
        return rowBeside(direction);
    }
    const double page = viewport()->height() - m_lineHeight;
    const int row = m_heights.rowAt(m_heights.top(m_selectedRow) + direction * page);
    if (row < 0) {
        return direction > 0 ? numberOfRows() - 1 : 0;
    }
    return row == m_selectedRow ? row + direction : row; // moves on even from a row taller than the page
}

bool TableView::moveSelection(const QKeyEvent& event)
{
    if ((event.modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier) {
        return false;
    }
    const int last = numberOfRows() - 1;
    int row = -1;
    int step = 1;
    switch (event.key()) {
    case Qt::Key_Up:
        row = rowBeside(-1);
        step = -1;
        break;
    case Qt::Key_Down:
        row = rowBeside(1);
        break;
    case Qt::Key_Home:
        row = 0;
        break;
    case Qt::Key_End:
        row = last;
        step = -1;
        break;
    case Qt::Key_PageUp:
        row = rowPageAway(-1);
        step = -1;
        break;
    case Qt::Key_PageDown:
        row = rowPageAway(1);
        break;
    default:
        return false;
    }
    chooseRow(visibleRowFrom(row, step));
    return true;
}

void TableView::copy() const
{
    if (!hasRow(m_selectedRow)) {
        return;
    }
    QStringList cells;
    for (int column = 0; column < static_cast<int>(m_columns.size()); ++column) {
        cells.append(cellView(column, m_selectedRow).text);
    }
    QGuiApplication::clipboard()->setText(cells.join(u'\t'));
}

void TableView::sortByColumn(int column)
{
    if (!hasColumn(column) || !m_columns[static_cast<std::size_t>(column)].sortDescriptorPrototype) {
        return;
    }
    SortDescriptor descriptor = *m_columns[static_cast<std::size_t>(column)].sortDescriptorPrototype;
    if (!m_sortDescriptors.empty() && m_sortDescriptors.front() == descriptor) {
        const bool ascending = descriptor.order == SortOrder::Ascending;
        descriptor.order = ascending ? SortOrder::Descending : SortOrder::Ascending;
    }
    endEditing();
    setSortDescriptors({descriptor});
}
