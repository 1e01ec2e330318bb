// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

/// The heights of a table's rows and where each row begins, kept in a tree of partial sums: changing one height, asking
/// for a row's top and finding the row at a height are each O(log rows). All heights are in points; a height that is
/// negative or no number counts as 0, as does every height asked for outside the rows.
class RowHeights {
public:
    RowHeights() = default;

    /// Takes over all heights at once, in O(rows).
    explicit RowHeights(std::vector<double> heights);

    int count() const { return static_cast<int>(m_heights.size()); }
    double total() const { return top(count()); }

    double height(int row) const;

    /// The sum of the heights before `row`. `row` is held to 0...count.
    double top(int row) const;

    /// The row that covers `y`: the one with top <= y < top + height, so never one of height 0. -1 above the first row
    /// and below the last.
    int rowAt(double y) const;

    /// Does nothing for a row that does not exist.
    void setHeight(int row, double height);

    /// Makes `row` (held to 0...count) a new row of `height`, in O(rows).
    void insert(int row, double height);

private:
    void build();

    std::vector<double> m_heights;
    std::vector<double> m_sums; ///< 1-based: entry i holds the sum of the (i & -i) heights that end with height i
};
