// SPDX-License-Identifier: MIT
#include "calendar/DayNumber.h"
#include "look/Appearance.h"
#include "look/NamedColor.h"
#include "support/Pixels.h"
#include "support/Screenshot.h"

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

TEST(DayNumber, IsRedWhileItIsTodayAndOfTheColourOfTextElse)
{
    for (const Appearance appearance : {Appearance::Light, Appearance::Dark}) {
        const AppearanceGuard guard(appearance);
        QWidget page;
        page.setStyleSheet(QStringLiteral("QLabel { background: transparent; color: gray; }"));
        DayNumber number(&page);
        number.ensurePolished();
        EXPECT_EQ(number.textColor(), namedColor(u"ControlTextColor", page.palette()));
        number.setToday(true);
        EXPECT_EQ(number.textColor(), namedColor(u"SystemRedColor", page.palette()));
    }
}

TEST(DayNumber, IsPaintedInItsColourWhereItIsAlignedInItsMargins)
{
    QWidget page;
    page.resize(100, 60);
    page.setAutoFillBackground(true);
    DayNumber number(&page);
    number.setGeometry(0, 0, 100, 60);
    number.setText(QStringLiteral("15"));
    number.setAlignment(Qt::AlignLeft | Qt::AlignTop);
    number.setContentsMargins(10, 10, 10, 10);
    const QRect asText = placeOf(grabbed(page), isInk);
    EXPECT_TRUE(QRect(8, 8, 30, 30).contains(asText)) << "its place begins in the margins";
    EXPECT_GE(asText.left(), 10);
    EXPECT_GE(asText.top(), 10);
    EXPECT_TRUE(placeOf(grabbed(page), isRed).isEmpty());

    number.setToday(true);
    number.setLayoutDirection(Qt::RightToLeft);
    const QRect asToday = placeOf(grabbed(page), isRed);
    EXPECT_TRUE(QRect(60, 10, 30, 30).contains(asToday)) << "to the right, as one begins to read there";
    EXPECT_FALSE(asToday.isEmpty());
}
