// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QWidget>

/// A widget whose cells are found by tag. A cell also has its tag in the dynamic property "tag". Screen readers find
/// the cells with content.
class CellGrid : public QWidget {
    Q_OBJECT

public:
    explicit CellGrid(QWidget* parent = nullptr);

    /// The cell with this tag; null when there is none of that type.
    template <typename Cell = QWidget> Cell* viewWithTag(int tag) const
    {
        return qobject_cast<Cell*>(m_cells.value(tag));
    }

    /// Whether `cell`, a child of the grid, has content for screen readers; by default every visible cell has.
    virtual bool isSpoken(const QWidget& cell) const;

protected:
    void setTag(QWidget& cell, int tag)
    {
        cell.setProperty("tag", tag);
        m_cells.insert(tag, &cell);
    }

private:
    QHash<int, QWidget*> m_cells;
};
