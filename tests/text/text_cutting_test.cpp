// SPDX-License-Identifier: MIT
#include "text/TextCutting.h"
#include "text/WritingDirection.h"
#include "text/XmlCharacters.h"

#include <gtest/gtest.h>

TEST(TextCutting, KeepsWholeSignsAtTheBeginning)
{
    EXPECT_EQ(beginningOf(u"abc", 5), u"abc");
    EXPECT_EQ(beginningOf(u"abc", 2), u"ab");
    EXPECT_EQ(beginningOf(u"a\U0001F382b", 2), u"a");
    EXPECT_EQ(beginningOf(u"a\U0001F382b", 3), u"a\U0001F382");
    EXPECT_EQ(beginningOf(u"abc", 0), u"");
    EXPECT_EQ(beginningOf(u"abc", -1), u"");
    EXPECT_EQ(beginningOf(u"", -1), u"");
    EXPECT_EQ(beginningOf(u"cafe\u0301s", 4), u"caf") << "a letter without its accent is another one";
    EXPECT_EQ(beginningOf(u"cafe\u0301s", 5), u"cafe\u0301");
    EXPECT_EQ(beginningOf(u"a\U0001F44D\U0001F3FD", 3), u"a") << "a thumb without the colour of its skin";
    EXPECT_EQ(beginningOf(u"a\U0001F469\u200D\U0001F467b", 4), u"a") << "half a family";
    EXPECT_EQ(beginningOf(u"a\U0001F1E9\U0001F1EA", 3), u"a") << "half a flag";
    EXPECT_EQ(beginningOf(u"e\u0301\u0301\u0301", 2), u"e\u0301") << "one sign alone is longer";
}

TEST(TextCutting, ShowsThatSomethingWasLeftOut)
{
    EXPECT_EQ(shortened(u"abc", 3), u"abc"_qs);
    EXPECT_EQ(shortened(u"abcd", 3), u"abc…"_qs);
    EXPECT_EQ(shortened(u"ab\U0001F382d", 3), u"ab…"_qs);
}

TEST(TextCutting, KeepsWholeSignsAtBothEnds)
{
    EXPECT_EQ(withoutMiddle(u"abcdef", 6), u"abcdef"_qs);
    EXPECT_EQ(withoutMiddle(u"abcdefg", 6), u"abc…efg"_qs);
    EXPECT_EQ(withoutMiddle(u"ab\U0001F382\U0001F382fg", 6), u"ab…\U0001F382fg"_qs);
    EXPECT_EQ(withoutMiddle(u"abcdcafe\u0301", 2), u"a…e\u0301"_qs);
    EXPECT_EQ(withoutMiddle(u"\U0001F382abcde", 2), u"…e"_qs) << "no half of the cake";
}

TEST(TextCutting, TakesTheFirstSignWhole)
{
    EXPECT_EQ(firstSignOf(u"abc"), u"a");
    EXPECT_EQ(firstSignOf(u"e\u0301t\u00E9"), u"e\u0301");
    EXPECT_EQ(firstSignOf(u"\U0001F382!"), u"\U0001F382");
    EXPECT_TRUE(firstSignOf(u"").isEmpty());
}

TEST(WritingDirection, IsThatOfTheFirstLetter)
{
    EXPECT_EQ(writingDirection(u"12 abc \u05D0", Qt::RightToLeft), Qt::LeftToRight);
    EXPECT_EQ(writingDirection(u"12 \u05D0 abc", Qt::LeftToRight), Qt::RightToLeft);
    EXPECT_EQ(writingDirection(u"\U0001F382 \u0633", Qt::LeftToRight), Qt::RightToLeft);
    EXPECT_EQ(writingDirection(u"12 + 3", Qt::LeftToRight), Qt::LeftToRight);
    EXPECT_EQ(writingDirection(u"12 + 3", Qt::RightToLeft), Qt::RightToLeft);
}

TEST(XmlCharacters, LeaveOutWhatXmlCannotCarry)
{
    // The Char production of XML 1.0: #x9 | #xA | #xD | [#x20-#xD7FF] | [#xE000-#xFFFD] | [#x10000-#x10FFFF].
    const QString allowed = u"\t\n\r ~\u0085\uD7FF\uE000\uFFFD\U00010000\U0010FFFF"_qs;
    EXPECT_EQ(withoutForbiddenXmlCharacters(allowed), allowed);
    QString forbidden = u"a\u0001\u0008\u000B\u000C\u001Fb\uFFFE\uFFFFc"_qs;
    forbidden.append(QChar(0xD800)).append(u'd').append(QChar(0xDC00)).append(QChar(0xD801));
    forbidden.append(QChar(0));
    EXPECT_EQ(withoutForbiddenXmlCharacters(forbidden), u"abcd"_qs);
}
