// SPDX-License-Identifier: MIT
#include "widgets/DateNotesMenu.h"
#include "widgets/ReminderMenu.h"

#include <QAction>
#include <QSignalSpy>
#include <gtest/gtest.h>

TEST(ReminderMenu, SaysWhyThereIsNoReminderAndOffersNone)
{
    ReminderMenu menu(nullptr);
    menu.offer(QStringLiteral("March 1, 2024"));
    menu.refuse(QStringLiteral("Only for future dates"));
    ASSERT_EQ(menu.actions().size(), 2);
    EXPECT_EQ(menu.actions().at(0)->text(), QStringLiteral("Only for future dates"));
    EXPECT_TRUE(menu.actions().at(0)->isEnabled());
    EXPECT_EQ(menu.actions().at(1)->text(), QString());
    EXPECT_FALSE(menu.actions().at(1)->isEnabled());
    EXPECT_FALSE(menu.actions().at(1)->isVisible());
}

TEST(ReminderMenu, OffersOneForTheDateAndTellsWhenItIsWanted)
{
    ReminderMenu menu(nullptr);
    menu.refuse(QStringLiteral("Only for future dates"));
    menu.offer(QStringLiteral("March 1, 2024"));
    EXPECT_EQ(menu.actions().at(0)->text(),
              QStringLiteral("March 1, 2024 has been selected. Choose an option below to continue."));
    EXPECT_FALSE(menu.actions().at(0)->isEnabled());
    QAction& item = *menu.actions().at(1);
    EXPECT_EQ(item.text(),
              QStringLiteral("Remind me about this note via the System Notification Center on: March 1, 2024"));
    EXPECT_TRUE(item.isEnabled());
    EXPECT_TRUE(item.isVisible());

    const QAction* wanted = nullptr;
    QObject::connect(&menu, &ReminderMenu::reminderWanted, &menu, [&wanted](const QAction& each) { wanted = &each; });
    item.trigger();
    EXPECT_EQ(wanted, &item);
}

TEST(DateNotesMenu, OffersNothingWithoutADate)
{
    DateNotesMenu menu(nullptr);
    menu.offer(QStringLiteral("May 4, 1963"), QStringLiteral("May 4, 2024"));
    menu.refuse();
    ASSERT_EQ(menu.actions().size(), 3);
    EXPECT_EQ(menu.actions().at(0)->text(), QStringLiteral("Please select a row with an Important Date on it"));
    EXPECT_TRUE(menu.actions().at(0)->isEnabled());
    for (const int item : {1, 2}) {
        EXPECT_EQ(menu.actions().at(item)->text(),
                  QStringLiteral("Add a note or update an existing note's description for this date: …"));
        EXPECT_FALSE(menu.actions().at(item)->isEnabled());
    }
}

TEST(DateNotesMenu, OffersBothDaysAndKnowsItsItems)
{
    DateNotesMenu menu(nullptr);
    menu.refuse();
    menu.offer(QStringLiteral("May 4, 1963"), QStringLiteral("May 4, 2024"));
    EXPECT_EQ(menu.actions().at(0)->text(),
              QStringLiteral("May 4, 1963 has been selected. Choose an option below to continue."));
    EXPECT_FALSE(menu.actions().at(0)->isEnabled());
    EXPECT_TRUE(menu.actions().at(1)->text().endsWith(QStringLiteral(": May 4, 1963")));
    EXPECT_TRUE(menu.actions().at(2)->text().endsWith(QStringLiteral(": May 4, 2024")));
    EXPECT_TRUE(menu.actions().at(1)->isEnabled() && menu.actions().at(2)->isEnabled());

    EXPECT_EQ(menu.choiceOf(*menu.actions().at(0)), std::nullopt);
    EXPECT_EQ(menu.choiceOf(*menu.actions().at(1)), DateNotesMenu::Choice::OwnDay);
    EXPECT_EQ(menu.choiceOf(*menu.actions().at(2)), DateNotesMenu::Choice::ThisYear);
    EXPECT_EQ(menu.choiceOf(QAction()), std::nullopt);

    const QAction* chosen = nullptr;
    QObject::connect(&menu, &DateNotesMenu::chosen, &menu, [&chosen](const QAction& each) { chosen = &each; });
    for (const int item : {1, 2}) {
        menu.actions().at(item)->trigger();
        EXPECT_EQ(chosen, menu.actions().at(item));
    }
}
