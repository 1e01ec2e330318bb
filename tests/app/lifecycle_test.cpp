// SPDX-License-Identifier: MIT
#include "app/PreferenceKeys.h"
#include "support/AppFixture.h"

#include <QTimer>

namespace {

class LifecycleTest : public AppFixture {};

TEST_F(LifecycleTest, WithTheListPreferenceOffItStartsWithTheCurrentMonth)
{
    putNotes({note(2024, 3, 2, "in March"), note(2024, 4, 1, "in April")});
    host.userDefaults.stored.insert(PreferenceKeys::startList, 0);
    start();
    EXPECT_EQ(shownRows(), QStringList{QStringLiteral("Sat, Mar 2, 2024 | in March")});
    EXPECT_EQ(ui->hideShowSegBtn->labelForSegment(1), QStringLiteral("Show All"));
}

TEST_F(LifecycleTest, WithTheListPreferenceOnItStartsWithAllNotes)
{
    putNotes({note(2024, 3, 2, "in March"), note(2024, 4, 1, "in April")});
    start();
    EXPECT_EQ(shownRows().size(), 2);
    EXPECT_EQ(ui->hideShowSegBtn->labelForSegment(1), QStringLiteral("Hide All"));
    EXPECT_EQ(countLine(), QStringLiteral("Displaying 2 notes"));
}

TEST_F(LifecycleTest, AnOlderSystemIsToldAndTheProgramEndsWithoutTouchingAFile)
{
    host.processInfo.version = {.major = 10, .minor = 14};
    make();
    bool ended = false;
    QObject::connect(app.get(), &AppDelegate::terminated, [&ended] { ended = true; });
    QString headline;
    QTimer::singleShot(0, [&headline] {
        auto* gate = qobject_cast<Alert*>(QApplication::activeModalWidget());
        headline = gate->messageText();
        gate->buttons().at(1)->click();
    });
    app->applicationWillFinishLaunching();
    app->applicationDidFinishLaunching();
    EXPECT_EQ(headline, QStringLiteral("Sorry, Velumora requires Mac OS X version 10.15 or later."));
    EXPECT_TRUE(ended);
    EXPECT_EQ(host.workspace.opened.size(), 1); // the second button opens the web page
    EXPECT_FALSE(window->isVisible());
    EXPECT_TRUE(std::filesystem::is_empty(dataFolder()));
}

} // namespace
