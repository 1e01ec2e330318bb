// SPDX-License-Identifier: MIT
#include "calendar/DayNumber.h"

#include <QWidget>
#include <gtest/gtest.h>

TEST(DayNumber, IsSpokenAsTodayWithTheNumberThatItShows)
{
    QWidget page;
    DayNumber number(&page);
    number.setText(QStringLiteral("15"));
    number.setToday(true);
    EXPECT_EQ(number.accessibleName(), QStringLiteral("15, today"));
    number.setText(QStringLiteral("22")); // a week later today is in the same place
    number.setToday(true);
    EXPECT_EQ(number.accessibleName(), QStringLiteral("22, today"));
    number.setToday(false);
    EXPECT_EQ(number.accessibleName(), QString());
}

TEST(DayNumber, IsBoldWhileItIsToday)
{
    QWidget page;
    DayNumber number(&page);
    number.setToday(true);
    EXPECT_TRUE(number.font().bold());
    number.setToday(false);
    EXPECT_FALSE(number.font().bold());
}
