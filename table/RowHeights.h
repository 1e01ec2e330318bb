// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

/// The heights and positions of a table's rows, kept in a tree of partial sums: changing a height, asking for a row's
/// top and finding the row at a position are each O(log rows). Heights are in points; a negative height or NaN counts
/// as 0, and rows that do not exist have height 0.
class RowHeights {
public:
    RowHeights() = default;

    /// Takes all heights at once, in O(rows).
    explicit RowHeights(std::vector<double> heights);

    int count() const { return static_cast<int>(m_heights.size()); }
    double total() const { return top(count()); }

    double height(int row) const;

    /// The sum of the heights before `row`, which is clamped to 0...count.
    double top(int row) const;

    /// The row with top <= y < top + height, so never one of height 0; -1 above the first row and below the last.
    int rowAt(double y) const;

    /// Does nothing for a row that does not exist.
    void setHeight(int row, double height);

    /// Inserts a row of `height` at `row` (clamped to 0...count), in O(rows).
    void insert(int row, double height);

private:
    void build();

    std::vector<double> m_heights;
    std::vector<double> m_sums; ///< 1-based: entry i holds the sum of the (i & -i) heights that end with height i
};
