// SPDX-License-Identifier: MIT
#pragma once

#include "table/TableColumn.h"

#include <Qt>

#include <vector>

/// Where one column stands, in whole points from the left edge of the table's contents.
struct ColumnSpan {
    int left = 0;
    int width = 0;

    int right() const { return left + width; } ///< the first point beside the column
    bool operator==(const ColumnSpan&) const = default;
};

/// Stands the columns side by side, from the right edge in a right-to-left layout. What `available` points leave beside
/// the fixed columns is shared by the stretching ones, which never get narrower than their minimum, so the columns may
/// reach beyond `available`. Without a stretching column some of it may stay free.
std::vector<ColumnSpan> layoutColumns(const std::vector<TableColumn>& columns, int available,
                                      Qt::LayoutDirection direction);
