// SPDX-License-Identifier: MIT
#pragma once

#include "table/TableColumn.h"

#include <Qt>

#include <vector>

/// The position of a column, in whole points from the left edge of the table's contents.
struct ColumnSpan {
    int left = 0;
    int width = 0;

    int right() const { return left + width; } ///< the first point after the column
    bool operator==(const ColumnSpan&) const = default;
};

/// Places the columns side by side, from the right edge in a right-to-left layout. The stretching columns share what
/// the fixed ones leave of `available` points, but never get narrower than their minimum, so the columns may extend
/// beyond `available`. Without a stretching column some of it may remain unused.
std::vector<ColumnSpan> layoutColumns(const std::vector<TableColumn>& columns, int available,
                                      Qt::LayoutDirection direction);
