// SPDX-License-Identifier: MIT
#include "host/GlobalDefaults.h"
#include "look/TextSize.h"

#include <QFont>
#include <gtest/gtest.h>

namespace {

/// What the toolkit gives a program that no desktop gives a font, as its platform themes say it.
const QFont madeUp(QStringLiteral("Sans Serif"), 9);

TEST(TextPixelSizeTest, TheFontThatADesktopGivesCounts)
{
    QFont cantarell(QStringLiteral("Cantarell"));
    cantarell.setPixelSize(15);
    EXPECT_EQ(textPixelSize(cantarell, {}), 15);
    EXPECT_EQ(textPixelSize(cantarell, {.points = 30, .scaling = 1}), 15);
    EXPECT_EQ(textPixelSize(cantarell, {.points = {}, .scaling = 1.5}), 23);
}

TEST(TextPixelSizeTest, WithoutOneWhatTheDesktopSaysAndElseThirteen)
{
    EXPECT_EQ(textPixelSize(madeUp, {}), 13);
    EXPECT_EQ(textPixelSize(madeUp, {.points = 11, .scaling = 1}), 15);
    EXPECT_EQ(textPixelSize(madeUp, {.points = 11, .scaling = 1.25}), 18);
}

} // namespace
