// SPDX-License-Identifier: MIT
#include "support/DateGuards.h"
#include "widgets/SaveButton.h"

#include <gtest/gtest.h>

namespace {

std::error_code systemError(int number)
{
    return {number, std::system_category()};
}

class SaveButtonTest : public testing::Test {
protected:
    SaveButtonTest()
    {
        button.setToolTip(QStringLiteral("saves"));
        button.setEnabled(false);
    }

    static QString plain(QString text) { return text.replace(QChar(0x202f), u' '); }

    SaveButton button{nullptr};
    const Date noon = utcDate(2024, 3, 1, 12);
    const Date later = utcDate(2024, 3, 2, 13);

private:
    TimeZoneGuard m_zone{"UTC"};
    LocaleGuard m_locale{"en_US", {"en-US"}};
};

TEST_F(SaveButtonTest, SaysAfterAFailureSinceWhenAndWhyAndCanBePressed)
{
    button.showFailure(systemError(ENOSPC), noon);
    EXPECT_TRUE(button.showsFailure());
    EXPECT_TRUE(button.isEnabled());
    EXPECT_EQ(plain(button.toolTip()), QStringLiteral("Not saved since Mar 1, 2024, 12:00 PM: the disk is full"));
    EXPECT_EQ(button.accessibleDescription(), button.toolTip());
}

TEST_F(SaveButtonTest, GoesOnToSaySinceWhenTheFirstOfSeveralFailuresWas)
{
    button.showFailure(systemError(ENOSPC), noon);
    button.showFailure(systemError(EROFS), later);
    EXPECT_EQ(plain(button.toolTip()),
              QStringLiteral("Not saved since Mar 1, 2024, 12:00 PM: the disk can only be read"));
    button.endFailure();
    EXPECT_EQ(button.toolTip(), QStringLiteral("saves"));
    button.showFailure(systemError(EROFS), later);
    EXPECT_EQ(plain(button.toolTip()),
              QStringLiteral("Not saved since Mar 2, 2024, 1:00 PM: the disk can only be read"));
}

TEST_F(SaveButtonTest, SaysNothingOnceEverythingIsSaved)
{
    button.endFailure();
    EXPECT_EQ(button.toolTip(), QStringLiteral("saves"));
    button.showFailure(systemError(EACCES), noon);
    button.endFailure();
    EXPECT_FALSE(button.showsFailure());
    EXPECT_EQ(button.toolTip(), QStringLiteral("saves"));
    EXPECT_EQ(button.accessibleDescription(), QString());
}

TEST_F(SaveButtonTest, NamesEveryReasonInPlainWords)
{
    const struct {
        int number;
        const char* reason;
    } rows[] = {
        {ENOSPC, "the disk is full"},
        {EDQUOT, "the disk is full"},
        {EFBIG, "the file is too large for the disk"},
        {EROFS, "the disk can only be read"},
        {EACCES, "the folder of the notes may not be written to"},
        {EPERM, "the folder of the notes may not be written to"},
        {ENOENT, "the folder of the notes is not there"},
        {ENOTDIR, "the folder of the notes is not there"},
        {EIO, "the disk could not be written to"},
    };
    for (const auto& row : rows) {
        button.showFailure(systemError(row.number), noon);
        EXPECT_TRUE(button.toolTip().endsWith(QLatin1String(": ") + QLatin1String(row.reason))) << row.number;
    }
}

} // namespace
