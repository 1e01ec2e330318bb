// SPDX-License-Identifier: MIT
#include "calendar/CellGridAccessible.h"

#include "calendar/CellGrid.h"

namespace {

QAccessibleInterface* makeInterface(const QString& /*className*/, QObject* object)
{
    auto* const grid = qobject_cast<CellGrid*>(object);
    return grid ? new CellGridAccessible(*grid) : nullptr; // the accessibility cache owns it
}

} // namespace

CellGridAccessible::CellGridAccessible(CellGrid& grid) : QAccessibleWidget(&grid, QAccessible::Client) {}

void CellGridAccessible::install()
{
    QAccessible::installFactory(makeInterface);
}

QWidgetList CellGridAccessible::spokenCells() const
{
    const auto& grid = *qobject_cast<CellGrid*>(object());
    QWidgetList cells;
    for (QWidget* each : grid.findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
        if (grid.isSpoken(*each)) {
            cells.append(each);
        }
    }
    return cells;
}

int CellGridAccessible::childCount() const
{
    return static_cast<int>(spokenCells().size());
}

QAccessibleInterface* CellGridAccessible::child(int index) const
{
    return QAccessible::queryAccessibleInterface(spokenCells().value(index));
}

int CellGridAccessible::indexOfChild(const QAccessibleInterface* child) const
{
    return child ? static_cast<int>(spokenCells().indexOf(child->object())) : -1;
}
