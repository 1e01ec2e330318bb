// SPDX-License-Identifier: MIT
#include "look/TableMetrics.h"

#include <QTextBlock>
#include <QTextDocument>
#include <gtest/gtest.h>

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
