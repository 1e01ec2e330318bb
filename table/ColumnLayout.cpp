// SPDX-License-Identifier: MIT
#include "table/ColumnLayout.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace {

int fixedWidth(const TableColumn& column)
{
    return static_cast<int>(std::lround(std::max(column.width, column.minimumWidth)));
}

} // namespace

std::vector<ColumnSpan> layoutColumns(const std::vector<TableColumn>& columns, int available,
                                      Qt::LayoutDirection direction)
{
    int rest = available;
    int stretching = 0;
    for (const TableColumn& column : columns) {
        rest -= column.stretches ? 0 : fixedWidth(column);
        stretching += column.stretches ? 1 : 0;
    }

    std::vector<ColumnSpan> spans;
    int left = 0;
    for (const TableColumn& column : columns) {
        int width = fixedWidth(column);
        if (column.stretches) {
            const int share = std::max(0, rest) / stretching;
            width = std::max(share, static_cast<int>(std::lround(column.minimumWidth)));
            rest -= share;
            --stretching;
        }
        spans.push_back({left, width});
        left += width;
    }

    if (direction == Qt::RightToLeft) {
        const int edge = std::max(available, left);
        for (ColumnSpan& span : spans) {
            span.left = edge - span.right();
        }
    }
    return spans;
}
