// SPDX-License-Identifier: MIT
#include "look/ReadingText.h"

#include <gtest/gtest.h>

namespace reading_text_test {
namespace {

TEST(ReadingText, ShowsAllItsLinesWhereverTheyFit)
{
    ReadingText text(1000);
    text.setText(QStringLiteral("Reminder 'Book club at our place: two extra chairs from the attic'\n\n"
                                "scheduled for date: Nov 28, 2026"));
    text.show();
    for (int width = 120; width < 400; ++width) {
        text.resize(width, text.minimumSizeHint().height()); // as a window lays it out first
        EXPECT_TRUE(text.isCut());
        text.resize(width, text.heightForWidth(width));
        EXPECT_FALSE(text.isCut()) << width;
        EXPECT_EQ(text.viewport()->width(), width) << width;
    }
}

TEST(ReadingText, ScrollsWhatDoesNotFit)
{
    ReadingText text(50);
    text.resize(200, 50);
    text.show();
    text.setText(QStringLiteral("one line"));
    EXPECT_FALSE(text.isCut());
    text.setText(QStringLiteral("line\n").repeated(20));
    EXPECT_TRUE(text.isCut());
    EXPECT_LT(text.viewport()->width(), 200);
}

} // namespace
} // namespace reading_text_test
