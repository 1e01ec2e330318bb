// SPDX-License-Identifier: MIT
#include "dates/DatePicker.h"
#include "support/DateGuards.h"

#include <QCalendarWidget>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

namespace {

/// The picker as it shows 20 May 1990, midnight in New York.
QString shownIn(const char* language)
{
    const LocaleGuard locale("en_US", {language});
    DatePicker picker;
    picker.setDateValue(utcDate(1990, 5, 20, 4));
    return picker.text();
}

class DatePickerTest : public testing::Test {
protected:
    TimeZoneGuard zone{"America/New_York"};
    LocaleGuard locale{"en_US", {"en-US"}};
};

TEST_F(DatePickerTest, ItSpeaksTheFirstPreferredLanguageWithAYearOfFourDigits)
{
    EXPECT_EQ(shownIn("en-US"), QStringLiteral("5/20/1990"));
    EXPECT_EQ(shownIn("en-GB"), QStringLiteral("20/05/1990"));
    EXPECT_EQ(shownIn("de-DE"), QStringLiteral("20.05.1990"));
    EXPECT_EQ(shownIn("sv-SE"), QStringLiteral("1990-05-20"));
    EXPECT_EQ(shownIn("ja-JP"), QStringLiteral("1990/05/20"));
}

TEST_F(DatePickerTest, PersianDatesAreThoseOfThePersianCalendar)
{
    const LocaleGuard persian("fa_IR", {"fa-IR"});
    DatePicker picker;
    picker.setDateValue(utcDate(1990, 5, 20, 4));
    // 30 Ordibehesht 1369, by the published tables
    EXPECT_EQ(picker.date().year(picker.calendar()), 1369);
    EXPECT_EQ(picker.date().month(picker.calendar()), 2);
    EXPECT_EQ(picker.date().day(picker.calendar()), 30);
}

TEST_F(DatePickerTest, TheDayIsThatOfTheProcessTimeZone)
{
    DatePicker picker;
    picker.setDateValue(utcDate(2024, 3, 15, 3, 59)); // 23:59 the evening before
    EXPECT_EQ(picker.date(), QDate(2024, 3, 14));
    picker.setDateValue(utcDate(2024, 3, 15, 4));
    EXPECT_EQ(picker.date(), QDate(2024, 3, 15));
}

TEST_F(DatePickerTest, KeysTypeADateFrom1800On)
{
    DatePicker picker;
    picker.setDateValue(utcDate(2024, 3, 15, 16, 30));
    QSignalSpy told(&picker, &DatePicker::dateValueChanged);
    picker.setSelectedSection(QDateTimeEdit::YearSection);
    QTest::keyClicks(&picker, QStringLiteral("1800"));
    EXPECT_EQ(picker.date(), QDate(1800, 3, 15));
    EXPECT_GE(told.count(), 1);
    // New York kept its local mean time, 4:56:02 behind Greenwich: 12:30 there
    EXPECT_EQ(picker.dateValue(), utcDate(1800, 3, 15, 17, 26, 2));
    picker.setSelectedSection(QDateTimeEdit::YearSection);
    QTest::keyClick(&picker, Qt::Key_Up);
    EXPECT_EQ(picker.date(), QDate(1801, 3, 15));
}

TEST_F(DatePickerTest, ADateBeforeThoseOfferedIsKept)
{
    DatePicker picker;
    const Date charlemagne = utcDate(1600, 12, 25, 12);
    ASSERT_TRUE(DatePicker::canShow(charlemagne));
    picker.setDateValue(charlemagne);
    EXPECT_EQ(picker.date(), QDate(1600, 12, 25));
    EXPECT_EQ(picker.dateValue(), charlemagne);
}

TEST_F(DatePickerTest, DatesBeyondTheYearsOfFourDigitsCannotBeShown)
{
    EXPECT_TRUE(DatePicker::canShow(utcDate(9999, 12, 31, 12)));
    EXPECT_FALSE(DatePicker::canShow(utcDate(10000, 1, 2)));
    EXPECT_FALSE(DatePicker::canShow(utcDate(99, 6, 1)));
}

TEST_F(DatePickerTest, ADayThatSkipsItsMidnightIsChosenLikeAnyOther)
{
    const TimeZoneGuard havana("America/Havana"); // 10 March 2024 began at 01:00
    DatePicker picker;
    picker.setDateValue(utcDate(2024, 3, 9, 5)); // midnight
    picker.setDate(QDate(2024, 3, 10));
    EXPECT_EQ(picker.date(), QDate(2024, 3, 10));
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
        auto* calendar = picker.findChild<QCalendarWidget*>();
        ASSERT_TRUE(calendar);
        ASSERT_TRUE(calendar->isVisible());
        EXPECT_EQ(calendar->firstDayOfWeek(), Qt::Monday);
        QWidget* days = calendar->findChild<QWidget*>(QStringLiteral("qt_calendar_calendarview"));
        ASSERT_TRUE(days);
        QTest::keyClick(days, Qt::Key_Down);
        QTest::keyClick(days, Qt::Key_Return);
        EXPECT_FALSE(calendar->isVisible());
        EXPECT_EQ(picker.date(), QDate(2024, 3, 22));
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
    EXPECT_EQ(picker.date(), QDate(2024, 3, 15));
    EXPECT_FALSE(wheel.isAccepted());
}

} // namespace
