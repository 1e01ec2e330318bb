// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessibleWidget>

class CellGrid;

/// A grid of cells for screen readers: the cells with content, in their order. Blank cells are left out.
class CellGridAccessible final : public QAccessibleWidget {
public:
    explicit CellGridAccessible(CellGrid& grid);

    /// Makes all grids of cells use this interface. Calling it again is cheap.
    static void install();

    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;

private:
    QWidgetList spokenCells() const;
};
