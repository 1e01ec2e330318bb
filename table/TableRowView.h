// SPDX-License-Identifier: MIT
#pragma once

#include <QPalette>
#include <QRectF>

class QPainter;

enum class SelectionHighlightStyle { None = -1, Regular = 0 };

/// Paints the background of a row. The table asks its delegate for a new one whenever it paints a row.
class TableRowView {
public:
    TableRowView() = default;
    TableRowView(const TableRowView&) = delete;
    TableRowView& operator=(const TableRowView&) = delete;
    virtual ~TableRowView() = default;

    /// The whole row, in the coordinates of the painter passed to the drawing functions.
    QRectF bounds() const { return m_bounds; }
    void setBounds(const QRectF& bounds) { m_bounds = bounds; }

    SelectionHighlightStyle selectionHighlightStyle() const { return m_style; }
    void setSelectionHighlightStyle(SelectionHighlightStyle style) { m_style = style; }

    const QPalette& palette() const { return m_palette; }
    void setPalette(const QPalette& palette) { m_palette = palette; }

    /// Fills the row's whole bounds with the named colour "TableRowSelectionColor", whatever `rect` is; does nothing
    /// when the style is None. Called for selected rows only.
    virtual void drawSelectionInRect(QPainter& painter, const QRectF& rect) const;

    /// Draws the hairline at the row's lower edge.
    virtual void drawSeparatorInRect(QPainter& painter, const QRectF& rect) const;

private:
    QRectF m_bounds;
    QPalette m_palette;
    SelectionHighlightStyle m_style = SelectionHighlightStyle::Regular;
};
