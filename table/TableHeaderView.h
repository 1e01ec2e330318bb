// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include <optional>

class TableView;

/// The row of column headers above a table: draws titles and the sort indicator, sorts on a click, and lets the user
/// drag the edge between two columns. It reads the columns from the table that owns it.
class TableHeaderView : public QWidget {
    Q_OBJECT

public:
    explicit TableHeaderView(TableView& table);

    QSize sizeHint() const override;

    /// The header of that column, in this widget's coordinates.
    QRect sectionRect(int column) const;

protected:
    bool event(QEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    struct Resizing {
        int column;
        int startX;
        double startWidth;
    };

    int columnAt(QPoint position) const;
    int resizableColumnAt(QPoint position) const;
    bool isSortable(int column) const;
    QString elidedTitle(int column) const;
    void paintSection(QPainter& painter, int column) const;
    void paintSortIndicator(QPainter& painter, int column) const;

    TableView& m_table;
    std::optional<Resizing> m_resizing;
    int m_pressedColumn = -1;
    int m_hoveredColumn = -1;
};
