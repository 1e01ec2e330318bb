// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QWidget>

/// A widget whose cells are found by tag. A cell carries its tag in the dynamic property "tag" as well. A screen reader
/// finds the cells that hold something.
class CellGrid : public QWidget {
    Q_OBJECT

public:
    explicit CellGrid(QWidget* parent = nullptr);

    /// The cell with this tag, null when there is none of that type.
    template <typename Cell = QWidget> Cell* viewWithTag(int tag) const
    {
        return qobject_cast<Cell*>(m_cells.value(tag));
    }

    /// Whether `cell`, a child of the grid, holds something to be said. Unless told otherwise, what can be seen does.
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
