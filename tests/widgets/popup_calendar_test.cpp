// SPDX-License-Identifier: MIT
// The calendar of a date picker in locales with calendars of their own.
#include "support/DateGuards.h"
#include "support/Screenshot.h"
#include "widgets/DatePicker.h"

#include <QCalendarWidget>
#include <QLabel>
#include <QTest>
#include <QToolButton>
#include <gtest/gtest.h>

#include <ostream>

namespace {

/// The month of 15 March 2024 as a page's title names it: 25 Esfand 1402, five days before the published new year of
/// 1403, and 5 Ramadan 1445, a month that began on 11 March. Gregorian names are those that Python's Babel prints.
struct Languages {
    const char* currentLocale;
    const char* language;
    const char* title;
    const char* fourteenMonthsOn;
};

void PrintTo(const Languages& row, std::ostream* stream)
{
    *stream << row.currentLocale << ", " << row.language;
}

/// Opens the calendar of a picker that shows 15 March 2024.
class PickersCalendarTest : public ::testing::TestWithParam<Languages> {
protected:
    void SetUp() override
    {
        picker.setDateValue(utcDate(2024, 3, 15, 12));
        picker.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&picker));
        QTest::keyClick(&picker, Qt::Key_F4);
        calendar = picker.findChild<QCalendarWidget*>();
        ASSERT_TRUE(calendar);
    }

    TimeZoneGuard zone{"UTC"};
    LocaleGuard locale{GetParam().currentLocale, {GetParam().language}};
    DatePicker picker;
    QCalendarWidget* calendar = nullptr;
};

/// The heading's texts that are seen, one after the other.
QString headingOf(const QCalendarWidget& calendar)
{
    const auto* bar = calendar.findChild<QWidget*>(QStringLiteral("qt_calendar_navigationbar"));
    QStringList texts;
    for (const auto* label : bar->findChildren<QLabel*>()) {
        texts.append(label->isVisible() ? label->text() : QString());
    }
    for (const char* name : {"qt_calendar_monthbutton", "qt_calendar_yearbutton"}) {
        const auto* button = bar->findChild<QToolButton*>(QString::fromLatin1(name));
        texts.append(button->isVisible() ? button->text() : QString());
    }
    texts.removeAll(QString());
    return texts.join(u' ');
}

TEST_P(PickersCalendarTest, IsHeadedByTheMonthAndYearOfThePickersText)
{
    EXPECT_EQ(headingOf(*calendar), QString::fromUtf8(GetParam().title));
    for (const auto* label : calendar->findChildren<QLabel*>()) {
        EXPECT_GE(label->width(), label->sizeHint().width()) << "nothing of the heading is cut";
    }
    saveScreenshot(grabbed(*calendar, 2), QStringLiteral("picker-") + QString::fromLatin1(GetParam().currentLocale));
    calendar->showNextMonth();
    calendar->showNextMonth();
    EXPECT_EQ(headingOf(*calendar), QString::fromUtf8(GetParam().fourteenMonthsOn)) << "two months on";
}

INSTANTIATE_TEST_SUITE_P(Locales, PickersCalendarTest,
                         ::testing::Values(Languages{"th_TH", "th-TH", "มีนาคม 2567", "พฤษภาคม 2567"},
                                           Languages{"th_TH", "en-US", "March 2567", "May 2567"},
                                           Languages{"en_US", "th-TH", "มีนาคม 2024", "พฤษภาคม 2024"},
                                           Languages{"en_US", "en-US", "March 2024", "May 2024"},
                                           Languages{"ar_SA", "en-US", "Sha. 1445 – Ram. 1445",
                                                     "Shaw. 1445 – Dhuʻl-Q. 1445"}));

} // namespace
