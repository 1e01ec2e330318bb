// SPDX-License-Identifier: MIT
#include "calendar/CellGrid.h"

#include "calendar/CellGridAccessible.h"

CellGrid::CellGrid(QWidget* parent) : QWidget(parent)
{
    CellGridAccessible::install();
}

bool CellGrid::isSpoken(const QWidget& cell) const
{
    return cell.isVisibleTo(this);
}
