// SPDX-License-Identifier: MIT
#include "support/DateGuards.h"
#include "widgets/DatePicker.h"

#include <QCalendarWidget>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>
#include <gtest/gtest.h>

namespace {

class DatePickerTest : public testing::Test {
protected:
    TimeZoneGuard zone{"America/New_York"};
    LocaleGuard locale{"en_US", {"en-US"}};
};

TEST_F(DatePickerTest, ItSpeaksTheFirstPreferredLanguage)
{
    const LocaleGuard german("en_US", {"de-DE"});
    DatePicker picker;
    picker.setDateValue(utcDate(1990, 5, 20, 4)); // midnight
    EXPECT_EQ(picker.text(), QStringLiteral("20.5.1990"));
}

TEST_F(DatePickerTest, TheDayIsThatOfTheProcessTimeZone)
{
    DatePicker picker;
    picker.setDateValue(utcDate(2024, 3, 15, 3, 59)); // 23:59 the evening before
    EXPECT_EQ(picker.day(), QDate(2024, 3, 14));
    picker.setDateValue(utcDate(2024, 3, 15, 4));
    EXPECT_EQ(picker.day(), QDate(2024, 3, 15));
}

TEST_F(DatePickerTest, KeysTypeADateFrom1800On)
{
    DatePicker picker;
    picker.setDateValue(utcDate(2024, 3, 15, 16, 30));
    QSignalSpy told(&picker, &DatePicker::dateValueChanged);
    picker.selectAll();
    QTest::keyClicks(&picker, QStringLiteral("3/15/1800"));
    EXPECT_EQ(picker.day(), QDate(1800, 3, 15));
    EXPECT_EQ(told.count(), 1) << "told once it is complete";
    // New York kept its local mean time, 4:56:02 behind Greenwich: 12:30 there
    EXPECT_EQ(picker.dateValue(), utcDate(1800, 3, 15, 17, 26, 2));
    picker.selectAll();
    QTest::keyClicks(&picker, QStringLiteral("12/31/1799"));
    EXPECT_EQ(picker.day(), QDate(1800, 3, 15)) << "before the days that are offered";
}

TEST_F(DatePickerTest, TheArrowKeysStepTheNumberAtTheCaret)
{
    DatePicker picker;
    picker.setDateValue(utcDate(2024, 1, 31, 17));
    picker.selectAll();
    QTest::keyClick(&picker, Qt::Key_Up);
    EXPECT_EQ(picker.day(), QDate(2024, 2, 29)) << "a month on, which ends sooner";
    QTest::keyClick(&picker, Qt::Key_End);
    QTest::keyClick(&picker, Qt::Key_Down);
    EXPECT_EQ(picker.day(), QDate(2023, 2, 28));
    QTest::keyClick(&picker, Qt::Key_Home);
    for (int i = 0; i < 4; ++i) {
        QTest::keyClick(&picker, Qt::Key_Right);
    }
    QTest::keyClick(&picker, Qt::Key_Up);
    EXPECT_EQ(picker.day(), QDate(2023, 3, 1));
    EXPECT_EQ(picker.text(), QStringLiteral("3/1/2023"));
}

TEST_F(DatePickerTest, WhatIsNotCompleteIsDroppedAtTheEnd)
{
    QWidget window;
    DatePicker picker(&window);
    QWidget other(&window);
    other.setFocusPolicy(Qt::StrongFocus);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    picker.setDateValue(utcDate(2024, 3, 15, 16));
    picker.setFocus();
    QTest::keyClicks(&picker, QStringLiteral("2/30/2024"));
    EXPECT_EQ(picker.day(), QDate(2024, 3, 15));
    other.setFocus();
    EXPECT_EQ(picker.text(), QStringLiteral("3/15/2024"));
}

TEST_F(DatePickerTest, ADateBeforeThoseOfferedIsKept)
{
    DatePicker picker;
    const Date charlemagne = utcDate(1600, 12, 25, 12);
    ASSERT_TRUE(DatePicker::canShow(charlemagne));
    picker.setDateValue(charlemagne);
    EXPECT_EQ(picker.day(), QDate(1600, 12, 25));
    EXPECT_EQ(picker.dateValue(), charlemagne);
}

TEST_F(DatePickerTest, DatesBeyondTheYearsOfFourDigitsCannotBeShown)
{
    EXPECT_TRUE(DatePicker::canShow(utcDate(9999, 12, 31, 12)));
    EXPECT_FALSE(DatePicker::canShow(utcDate(10000, 1, 2)));
    EXPECT_FALSE(DatePicker::canShow(utcDate(0, 6, 1)));
}

TEST_F(DatePickerTest, ADayThatSkipsItsMidnightIsChosenLikeAnyOther)
{
    const TimeZoneGuard havana("America/Havana"); // 10 March 2024 began at 01:00
    DatePicker picker;
    picker.setDateValue(utcDate(2024, 3, 9, 5)); // midnight
    picker.chooseDay(QDate(2024, 3, 10));
    EXPECT_EQ(picker.day(), QDate(2024, 3, 10));
    EXPECT_EQ(picker.dateValue(), utcDate(2024, 3, 10, 5)) << "the day's first instant, 01:00";
}

TEST_F(DatePickerTest, TheCalendarOpensByKeyAndChoosesADay)
{
    for (const auto& [key, modifier] :
         {std::pair(Qt::Key_F4, Qt::NoModifier), std::pair(Qt::Key_Down, Qt::AltModifier)}) {
        DatePicker picker;
        picker.setDateValue(utcDate(2024, 3, 15, 16));
        picker.setFirstDayOfWeek(Qt::Monday);
        picker.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&picker));
        QTest::keyClick(&picker, key, modifier);
        QPointer<QCalendarWidget> calendar = picker.findChild<QCalendarWidget*>();
        ASSERT_TRUE(calendar);
        ASSERT_TRUE(calendar->isVisible());
        EXPECT_EQ(calendar->firstDayOfWeek(), Qt::Monday);
        QWidget* days = calendar->findChild<QWidget*>(QStringLiteral("qt_calendar_calendarview"));
        ASSERT_TRUE(days);
        QTest::keyClick(days, Qt::Key_Down);
        QTest::keyClick(days, Qt::Key_Return);
        EXPECT_TRUE(!calendar || !calendar->isVisible());
        EXPECT_EQ(picker.day(), QDate(2024, 3, 22));
        EXPECT_EQ(picker.text(), QStringLiteral("3/22/2024"));
        EXPECT_EQ(picker.dateValue(), utcDate(2024, 3, 22, 16));
    }
}

TEST_F(DatePickerTest, TheWheelLeavesTheDateAlone)
{
    DatePicker picker;
    picker.setDateValue(utcDate(2024, 3, 15, 16));
    picker.setFocus();
    QWheelEvent wheel({5, 5}, {5, 5}, {}, {0, 120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&picker, &wheel);
    EXPECT_EQ(picker.day(), QDate(2024, 3, 15));
    EXPECT_FALSE(wheel.isAccepted());
}

} // namespace
