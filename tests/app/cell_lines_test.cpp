// SPDX-License-Identifier: MIT
#include "look/TableMetrics.h"
#include "text/CellLines.h"
#include "text/XmlCharacters.h"

#include <QString>
#include <QTextBlock>
#include <QTextDocument>
#include <gtest/gtest.h>

TEST(CellLines, ACutNeverLeavesHalfASurrogatePair)
{
    EXPECT_EQ(CellLines::cut(u"abc", 5), u"abc");
    EXPECT_EQ(CellLines::cut(u"abc", 2), u"ab");
    EXPECT_EQ(CellLines::cut(u"a\U0001F382b", 2), u"a");
    EXPECT_EQ(CellLines::cut(u"a\U0001F382b", 3), u"a\U0001F382");
    EXPECT_EQ(CellLines::cut(u"abc", 0), u"");
    EXPECT_EQ(CellLines::cut(u"cafe\u0301s", 4), u"caf") << "a letter without its accent is another one";
    EXPECT_EQ(CellLines::cut(u"cafe\u0301s", 5), u"cafe\u0301");
    EXPECT_EQ(CellLines::cut(u"a\U0001F44D\U0001F3FD", 3), u"a") << "a thumb without the colour of its skin";
    EXPECT_EQ(CellLines::cut(u"a\U0001F469\u200D\U0001F467b", 4), u"a") << "half a family";
    EXPECT_EQ(CellLines::cut(u"a\U0001F1E9\U0001F1EA", 3), u"a") << "half a flag";
    EXPECT_EQ(CellLines::cut(u"e\u0301\u0301\u0301", 2), u"e\u0301") << "one sign alone is longer";
}

TEST(CellLines, TheFirstLetterGivesTheDirection)
{
    EXPECT_EQ(CellLines::direction(u"12 abc \u05D0", Qt::RightToLeft), Qt::LeftToRight);
    EXPECT_EQ(CellLines::direction(u"12 \u05D0 abc", Qt::LeftToRight), Qt::RightToLeft);
    EXPECT_EQ(CellLines::direction(u"\U0001F382 \u0633", Qt::LeftToRight), Qt::RightToLeft);
    EXPECT_EQ(CellLines::direction(u"12 + 3", Qt::LeftToRight), Qt::LeftToRight);
    EXPECT_EQ(CellLines::direction(u"12 + 3", Qt::RightToLeft), Qt::RightToLeft);
}

TEST(XmlCharacters, WhatXmlCannotCarryIsLeftOut)
{
    // The Char production of XML 1.0: #x9 | #xA | #xD | [#x20-#xD7FF] | [#xE000-#xFFFD] | [#x10000-#x10FFFF].
    const QString allowed = u"\t\n\r ~\u0085\uD7FF\uE000\uFFFD\U00010000\U0010FFFF"_qs;
    EXPECT_EQ(withoutForbiddenXmlCharacters(allowed), allowed);
    QString forbidden = u"a\u0001\u0008\u000B\u000C\u001Fb\uFFFE\uFFFFc"_qs;
    forbidden.append(QChar(0xD800)).append(u'd').append(QChar(0xDC00)).append(QChar(0xD801));
    forbidden.append(QChar(0));
    EXPECT_EQ(withoutForbiddenXmlCharacters(forbidden), u"abcd"_qs);
}

TEST(PlainToolTip, ShowsMarkupAsItStands)
{
    QTextDocument shown;
    shown.setHtml(plainToolTip(u"<b>not bold</b> & co"_qs));
    EXPECT_EQ(shown.toPlainText(), u"<b>not bold</b> & co"_qs);
}

TEST(PlainToolTip, EachLineHasItsOwnDirection)
{
    QTextDocument shown;
    shown.setHtml(plainToolTip(u"Tea\n\u05EA\u05D4, 7!\n\nend"_qs));
    EXPECT_EQ(shown.toPlainText(), u"Tea\n\u05EA\u05D4, 7!\n \nend"_qs);
    EXPECT_EQ(shown.findBlockByNumber(0).textDirection(), Qt::LeftToRight);
    EXPECT_EQ(shown.findBlockByNumber(1).textDirection(), Qt::RightToLeft);
    EXPECT_EQ(shown.findBlockByNumber(3).textDirection(), Qt::LeftToRight);
}

TEST(PlainToolTip, IsBoundedWhateverTheText)
{
    QTextDocument shown;
    shown.setHtml(plainToolTip(QString(1000000, u'x')));
    EXPECT_EQ(shown.toPlainText(), QString(300, u'x') + u'…');
    shown.setHtml(plainToolTip(u"l\n"_qs.repeated(100000)));
    EXPECT_EQ(shown.toPlainText(), u"l\n"_qs.repeated(30) + u'…');
}
