// SPDX-License-Identifier: MIT
#include "support/AppFixture.h"

#include <QTest>

namespace {

class AlertTest : public AppFixture {
protected:
    AlertTest() { start(); }

    int answerOf(std::unique_ptr<Alert> shown, Qt::Key key)
    {
        int answered = 0;
        Alert::beginSheet(std::move(shown), *window, [&answered](int response) { answered = response; });
        runQueued();
        QTest::keyClick(alert(), key);
        runQueued();
        return answered;
    }

    static std::unique_ptr<Alert> twoButtons()
    {
        return AppDelegate::copySheetAlertWithErrorString(QStringLiteral("body"), QStringLiteral("headline"),
                                                          QStringLiteral("Yes"), QStringLiteral("No"));
    }
};

TEST_F(AlertTest, ReturnAnswersTheFirstButton)
{
    EXPECT_EQ(answerOf(twoButtons(), Qt::Key_Return), 1000);
}

TEST_F(AlertTest, EscapeAnswersTheSecondButton)
{
    EXPECT_EQ(answerOf(twoButtons(), Qt::Key_Escape), 1001);
}

TEST_F(AlertTest, WithoutASecondButtonEscapeHasNoButtonToPress)
{
    EXPECT_EQ(answerOf(AppDelegate::copySheetAlertWithErrorString(QStringLiteral("body"), QStringLiteral("headline"),
                                                                  QStringLiteral("OK"), QString()),
                       Qt::Key_Escape),
              0);
    EXPECT_TRUE(alert());
}

TEST_F(AlertTest, TheThirdButtonIsHiddenAndWidensThePanel)
{
    const std::unique_ptr<Alert> wide = twoButtons();
    ASSERT_EQ(wide->buttons().size(), 3);
    EXPECT_TRUE(wide->buttons().at(2)->isHidden());
    EXPECT_EQ(wide->buttons().at(2)->text(),
              QStringLiteral("Some Dummy Text to make the alert panel wider. Okay then"));
    EXPECT_GE(wide->sizeHint().width(), wide->buttons().at(2)->sizeHint().width());
}

TEST_F(AlertTest, ANullTitleAddsNoButtonAndAnEmptyOneAnEmptyButton)
{
    AppDelegate::doSheetAlert(*window, QStringLiteral("body"), QStringLiteral("headline"), QStringLiteral("OK"),
                              QString());
    EXPECT_EQ(alert()->buttons().size(), 1);
    answer(1000);
    AppDelegate::doSheetAlert(*window, QStringLiteral("body"), QStringLiteral("headline"), QStringLiteral("OK"),
                              QStringLiteral(""));
    ASSERT_EQ(alert()->buttons().size(), 2);
    EXPECT_EQ(alert()->buttons().at(1)->text(), QString());
}

TEST_F(AlertTest, ASecondSheetWaitsForTheFirst)
{
    for (const char* headline : {"one", "two"}) {
        AppDelegate::doSheetAlert(*window, QString(), QString::fromLatin1(headline), QStringLiteral("OK"), QString());
    }
    EXPECT_EQ(alert()->messageText(), QStringLiteral("one"));
    answer(1000);
    ASSERT_TRUE(alert());
    EXPECT_EQ(alert()->messageText(), QStringLiteral("two"));
    answer(1000);
    EXPECT_FALSE(alert());
}

} // namespace
