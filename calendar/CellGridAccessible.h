// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessibleWidget>

class CellGrid;

/// What a screen reader knows of a grid of cells: those that hold something, in their order. Blank ones are not there.
class CellGridAccessible final : public QAccessibleWidget {
public:
    explicit CellGridAccessible(CellGrid& grid);

    /// From now on grids of cells are given this interface. Cheap to call again.
    static void install();

    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;

private:
    QWidgetList spokenCells() const;
};
