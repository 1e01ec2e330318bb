// SPDX-License-Identifier: MIT
#include "table/RowHeights.h"

#include <algorithm>
#include <bit>

namespace {

double heightOrZero(double height)
{
    return height > 0.0 ? height : 0.0; // false for NaN, too
}

std::size_t lowestBit(std::size_t index)
{
    return index & (~index + 1);
}

} // namespace

RowHeights::RowHeights(std::vector<double> heights) : m_heights(std::move(heights))
{
    std::transform(m_heights.begin(), m_heights.end(), m_heights.begin(), heightOrZero);
    build();
}

void RowHeights::build()
{
    m_sums.assign(m_heights.size() + 1, 0.0);
    for (std::size_t i = 1; i < m_sums.size(); ++i) {
        m_sums[i] += m_heights[i - 1];
        if (const std::size_t parent = i + lowestBit(i); parent < m_sums.size()) {
            m_sums[parent] += m_sums[i];
        }
    }
}

double RowHeights::height(int row) const
{
    return row >= 0 && row < count() ? m_heights[static_cast<std::size_t>(row)] : 0.0;
}

double RowHeights::top(int row) const
{
    double sum = 0.0;
    for (auto i = static_cast<std::size_t>(std::clamp(row, 0, count())); i > 0; i -= lowestBit(i)) {
        sum += m_sums[i];
    }
    return sum;
}

int RowHeights::rowAt(double y) const
{
    if (!(y >= 0.0)) {
        return -1;
    }
    std::size_t before = 0; // number of rows that end at or above y
    double rest = y;
    for (std::size_t step = std::bit_floor(m_heights.size()); step > 0; step /= 2) {
        if (before + step < m_sums.size() && m_sums[before + step] <= rest) {
            before += step;
            rest -= m_sums[before];
        }
    }
    return before < m_heights.size() ? static_cast<int>(before) : -1;
}

void RowHeights::setHeight(int row, double height)
{
    if (row < 0 || row >= count()) {
        return;
    }
    const double change = heightOrZero(height) - m_heights[static_cast<std::size_t>(row)];
    m_heights[static_cast<std::size_t>(row)] = heightOrZero(height);
    for (std::size_t i = static_cast<std::size_t>(row) + 1; i < m_sums.size(); i += lowestBit(i)) {
        m_sums[i] += change;
    }
}

void RowHeights::insert(int row, double height)
{
    m_heights.insert(m_heights.begin() + std::clamp(row, 0, count()), heightOrZero(height));
    build();
}
