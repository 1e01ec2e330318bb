// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QWidget>

/// A widget whose cells are found by tag. A cell carries its tag in the dynamic property "tag" as well.
class CellGrid : public QWidget {
    Q_OBJECT

public:
    using QWidget::QWidget;

    /// The cell with this tag, null when there is none of that type.
    template <typename Cell = QWidget> Cell* viewWithTag(int tag) const
    {
        return qobject_cast<Cell*>(m_cells.value(tag));
    }

protected:
    void setTag(QWidget& cell, int tag)
    {
        cell.setProperty("tag", tag);
        m_cells.insert(tag, &cell);
    }

private:
    QHash<int, QWidget*> m_cells;
};
