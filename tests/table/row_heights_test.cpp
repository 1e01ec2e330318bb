// SPDX-License-Identifier: MIT
#include "table/RowHeights.h"

#include <gtest/gtest.h>

#include <limits>
#include <numeric>
#include <random>

namespace {

// What the tree has to agree with: sums taken the slow way.
double slowTop(const std::vector<double>& heights, int row)
{
    return std::accumulate(heights.begin(), heights.begin() + row, 0.0);
}

int slowRowAt(const std::vector<double>& heights, double y)
{
    double bottom = 0.0;
    for (std::size_t row = 0; row < heights.size(); ++row) {
        bottom += heights[row];
        if (y >= 0.0 && y < bottom) {
            return static_cast<int>(row);
        }
    }
    return -1;
}

TEST(RowHeights, WithoutRowsThereIsNothing)
{
    const RowHeights none;
    EXPECT_EQ(none.count(), 0);
    EXPECT_EQ(none.total(), 0.0);
    EXPECT_EQ(none.rowAt(0.0), -1);
    EXPECT_EQ(none.height(0), 0.0);
}

TEST(RowHeights, KnowsWhereEachRowBeginsAndWhichRowCoversAHeight)
{
    const RowHeights rows({17.0, 51.0, 0.0, 34.0});
    EXPECT_EQ(rows.top(0), 0.0);
    EXPECT_EQ(rows.top(1), 17.0);
    EXPECT_EQ(rows.top(3), 68.0);
    EXPECT_EQ(rows.total(), 102.0);
    struct {
        double y;
        int row;
    } const table[] = {{-0.5, -1}, {0.0, 0}, {16.9, 0}, {17.0, 1}, {67.9, 1}, {68.0, 3}, {101.9, 3}, {102.0, -1}};
    for (const auto& expected : table) {
        EXPECT_EQ(rows.rowAt(expected.y), expected.row) << expected.y;
    }
}

TEST(RowHeights, HeightsThatAreNoHeightsCountAsNothing)
{
    RowHeights rows({-5.0, std::numeric_limits<double>::quiet_NaN(), 17.0});
    EXPECT_EQ(rows.total(), 17.0);
    rows.setHeight(2, -1.0);
    rows.setHeight(-1, 17.0);
    rows.setHeight(3, 17.0);
    EXPECT_EQ(rows.total(), 0.0);
    EXPECT_EQ(rows.rowAt(0.0), -1);
}

TEST(RowHeights, AgreesWithSlowSumsThroughManyChanges)
{
    std::mt19937 random(36525);
    std::vector<double> heights(1000);
    for (double& height : heights) {
        height = 17.0 * static_cast<double>(random() % 4);
    }
    RowHeights rows(heights);
    for (int step = 0; step < 300; ++step) {
        const int row = static_cast<int>(random() % heights.size());
        const double height = 17.0 * static_cast<double>(random() % 6);
        if (step % 3 == 0) {
            rows.insert(row, height);
            heights.insert(heights.begin() + row, height);
        } else {
            rows.setHeight(row, height);
            heights[static_cast<std::size_t>(row)] = height;
        }
        const int asked = static_cast<int>(random() % (heights.size() + 1));
        ASSERT_EQ(rows.top(asked), slowTop(heights, asked));
        const double y = static_cast<double>(random() % 45000);
        ASSERT_EQ(rows.rowAt(y), slowRowAt(heights, y)) << y;
    }
}

} // namespace
