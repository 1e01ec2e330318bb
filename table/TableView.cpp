// SPDX-License-Identifier: MIT
#include "table/TableView.h"

#include "look/FocusRing.h"
#include "look/TableMetrics.h"
#include "table/TableAccessible.h"
#include "table/TableHeaderView.h"
#include "table/TableViewDelegate.h"

#include <QApplication>
#include <QMenu>
#include <QScrollBar>

#include <algorithm>
#include <cmath>
#include <limits>

TableView::TableView(QWidget* parent)
    : QAbstractScrollArea(parent), m_header(new TableHeaderView(*this)), m_focusRing(new FocusRing(this)),
      m_editRing(new FocusRing(viewport()))
{
    TableAccessible::install();
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::StrongFocus);
    setViewportMargins(0, m_header->sizeHint().height(), 0, 0);
    viewport()->setBackgroundRole(QPalette::Base);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    verticalScrollBar()->setSingleStep(static_cast<int>(m_lineHeight));
    horizontalScrollBar()->setSingleStep(static_cast<int>(m_lineHeight));
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget* /*old*/, QWidget* now) { focusMoved(now); });
}

TableView::~TableView()
{
    // The focus changes while the base classes are destroyed, when this is no longer a table.
    disconnect(qApp, nullptr, this, nullptr);
}

void TableView::setDelegate(TableViewDelegate* delegate)
{
    endEditing();
    m_delegate = delegate;
    reloadData();
}

// Columns

void TableView::addColumn(TableColumn column)
{
    m_columns.push_back(std::move(column));
    layoutContents();
}

int TableView::columnWithIdentifier(QStringView identifier) const
{
    const auto found = std::find_if(m_columns.begin(), m_columns.end(),
                                    [&](const TableColumn& column) { return column.identifier == identifier; });
    return found == m_columns.end() ? -1 : static_cast<int>(found - m_columns.begin());
}

void TableView::setHeaderCell(int column, HeaderCell cell)
{
    if (hasColumn(column)) {
        m_columns[static_cast<std::size_t>(column)].headerCell = std::move(cell);
        m_header->update();
    }
}

void TableView::setColumnWidth(int column, double width)
{
    if (hasColumn(column)) {
        TableColumn& changed = m_columns[static_cast<std::size_t>(column)];
        changed.width = std::max(width, changed.minimumWidth);
        changed.stretches = false;
        layoutContents();
    }
}

// Rows

void TableView::reloadData()
{
    endEditing();
    const int count = m_delegate ? std::max(0, m_delegate->numberOfRowsInTableView(*this)) : 0;
    std::vector<double> heights(static_cast<std::size_t>(count));
    for (int row = 0; row < count; ++row) {
        heights[static_cast<std::size_t>(row)] = m_delegate->heightOfRow(*this, row);
    }
    m_heights = RowHeights(std::move(heights));
    m_hiddenRows.clear();
    m_pressed = {};
    m_clickedRow = -1; // the clicked row may be a different one now
    m_resumeRow = -1;
    layoutContents();
    TableAccessible::tellReload(*this);
    if (m_selectedRow >= count) {
        select(-1, Origin::Program);
    }
}

void TableView::insertRow(int row)
{
    if (!m_delegate || row < 0 || row > numberOfRows()) {
        return;
    }
    m_heights.insert(row, m_delegate->heightOfRow(*this, row));
    std::set<int> hidden;
    for (const int index : m_hiddenRows) {
        hidden.insert(index < row ? index : index + 1);
    }
    m_hiddenRows = std::move(hidden);
    m_selectedRow += m_selectedRow >= row ? 1 : 0;
    m_resumeRow += m_resumeRow >= row ? 1 : 0;
    m_clickedRow += m_clickedRow >= row ? 1 : 0;
    m_pressed = {};
    if (m_edit && m_edit->row >= row) {
        ++m_edit->row;
    }
    layoutContents();
    TableAccessible::tellReload(*this);
}

void TableView::noteHeightOfRowChanged(int row)
{
    if (m_delegate && hasRow(row) && !m_hiddenRows.contains(row)) {
        setRowHeight(row, m_delegate->heightOfRow(*this, row));
    }
}

void TableView::redrawRow(int row)
{
    viewport()->update(rectOfRow(row));
}

void TableView::hideRow(int row)
{
    if (hasRow(row) && m_hiddenRows.insert(row).second) {
        if (editedRow() == row) {
            endEditing();
        }
        setRowHeight(row, 0.0);
    }
}

void TableView::unhideRow(int row)
{
    if (m_hiddenRows.erase(row) > 0) {
        noteHeightOfRowChanged(row);
    }
}

void TableView::setRowHeight(int row, double height)
{
    if (m_heights.height(row) != height) {
        m_heights.setHeight(row, height);
        layoutContents();
    }
}

void TableView::setLineHeight(double height)
{
    m_lineHeight = std::max(1.0, height);
    verticalScrollBar()->setSingleStep(static_cast<int>(m_lineHeight));
    layoutContents();
}

void TableView::setPlaceholderText(const QString& text)
{
    m_placeholderText = text;
    viewport()->update();
}

CellView TableView::cellView(int column, int row) const
{
    if (!m_delegate || !hasRow(row) || !hasColumn(column)) {
        return {};
    }
    return m_delegate->viewForTableColumn(*this, m_columns[static_cast<std::size_t>(column)], row);
}

// Places

int TableView::contentsX() const
{
    const QScrollBar& bar = *horizontalScrollBar();
    return isRightToLeft() ? bar.maximum() - bar.value() : bar.value();
}

void TableView::layoutContents()
{
    const QSize page = viewport()->size();
    m_columnSpans = layoutColumns(m_columns, page.width(), layoutDirection());
    int width = 0;
    for (const ColumnSpan& span : m_columnSpans) {
        width = std::max(width, span.right());
    }
    const double height = std::min(m_heights.total(), static_cast<double>(std::numeric_limits<int>::max()) / 2);
    verticalScrollBar()->setRange(0, std::max(0, static_cast<int>(std::ceil(height)) - page.height()));
    verticalScrollBar()->setPageStep(page.height());
    horizontalScrollBar()->setRange(0, std::max(0, width - page.width()));
    horizontalScrollBar()->setPageStep(page.width());
    m_header->setGeometry(viewport()->x(), viewport()->y() - m_header->sizeHint().height(), page.width(),
                          m_header->sizeHint().height());
    m_header->update();
    m_focusRing->setGeometry(m_header->geometry() | viewport()->geometry());
    viewport()->update();
    layoutEditor();
}

QRect TableView::rectOfRow(int row) const
{
    if (!hasRow(row)) {
        return {};
    }
    const int top = static_cast<int>(std::lround(m_heights.top(row)));
    const int bottom = static_cast<int>(std::lround(m_heights.top(row + 1)));
    return {0, top - verticalScrollBar()->value(), viewport()->width(), bottom - top};
}

QRect TableView::rectOfCell(int column, int row) const
{
    if (!hasRow(row) || !hasColumn(column)) {
        return {};
    }
    const QRect rowRect = rectOfRow(row);
    const ColumnSpan& span = m_columnSpans[static_cast<std::size_t>(column)];
    return {span.left - contentsX(), rowRect.top(), span.width, rowRect.height()};
}

int TableView::rowAt(QPoint position) const
{
    return m_heights.rowAt(position.y() + verticalScrollBar()->value());
}

int TableView::columnAt(QPoint position) const
{
    const int x = position.x() + contentsX();
    const auto found = std::find_if(m_columnSpans.begin(), m_columnSpans.end(),
                                    [x](const ColumnSpan& span) { return x >= span.left && x < span.right(); });
    return found == m_columnSpans.end() ? -1 : static_cast<int>(found - m_columnSpans.begin());
}

void TableView::scrollRowToVisible(int row)
{
    if (!hasRow(row)) {
        return;
    }
    const QRect rect = rectOfRow(row);
    QScrollBar& bar = *verticalScrollBar();
    if (rect.top() < 0 || rect.height() > viewport()->height()) {
        bar.setValue(bar.value() + rect.top());
    } else if (rect.bottom() >= viewport()->height()) {
        bar.setValue(bar.value() + rect.bottom() + 1 - viewport()->height());
    }
}

// Selection

void TableView::selectRow(int row)
{
    if (row == -1 || hasRow(row)) {
        select(row, Origin::Program);
    }
}

void TableView::select(int row, Origin origin)
{
    if (row == m_selectedRow) {
        return;
    }
    redrawRow(m_selectedRow);
    m_selectedRow = row;
    m_resumeRow = -1;
    redrawRow(m_selectedRow);
    if (m_delegate && origin == Origin::User) {
        m_delegate->tableViewSelectionIsChanging(*this);
    }
    if (m_delegate) {
        m_delegate->tableViewSelectionDidChange(*this);
    }
    TableAccessible::tellSelection(*this);
}

void TableView::chooseRow(int row)
{
    if (hasRow(row)) {
        select(row, Origin::User);
        scrollRowToVisible(row);
    }
}

void TableView::resumeAtRow(int row)
{
    m_resumeRow = std::min(row, numberOfRows());
}

int TableView::spokenColumn() const
{
    const auto found = std::find_if(m_columns.begin(), m_columns.end(), [](const TableColumn& column) {
        return column.editing == TableColumn::Editing::Editable && !column.editorFactory;
    });
    return found == m_columns.end() ? 0 : static_cast<int>(found - m_columns.begin());
}

void TableView::setSelectionHighlightStyle(SelectionHighlightStyle style)
{
    m_highlightStyle = style;
    viewport()->update();
}

// Sorting

void TableView::setSortDescriptors(std::vector<SortDescriptor> descriptors)
{
    if (descriptors == m_sortDescriptors) {
        return;
    }
    m_sortDescriptors = std::move(descriptors);
    m_header->update();
    if (m_delegate) {
        m_delegate->sortDescriptorsDidChange(*this);
    }
}

void TableView::setMenu(QMenu* menu)
{
    m_menu = menu;
}
