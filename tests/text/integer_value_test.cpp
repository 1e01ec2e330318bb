// SPDX-License-Identifier: MIT
#include "text/IntegerValue.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

struct Row {
    const char* name;
    QStringView text;
    int value;
};

class IntegerValueOfText : public testing::TestWithParam<Row> {};

TEST_P(IntegerValueOfText, IsTheNumberItBeginsWith)
{
    EXPECT_EQ(integerValue(GetParam().text), GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, IntegerValueOfText,
    testing::Values(Row{"Plain", u"2024", 2024}, Row{"LeadingZero", u"03", 3}, Row{"Zero", u"0", 0},
                    Row{"Empty", u"", 0}, Row{"Null", QStringView(), 0}, Row{"Words", u"abc", 0},
                    Row{"TextBehind", u"12 notes", 12}, Row{"TextBefore", u"a12", 0}, Row{"Blanks", u" \t\u00a0 7", 7},
                    Row{"OnlyBlanks", u"   ", 0}, Row{"Minus", u"-5", -5}, Row{"Plus", u"+5", 5},
                    Row{"BlankMinus", u"  -12x", -12}, Row{"OnlySign", u"-", 0}, Row{"TwoSigns", u"--5", 0},
                    Row{"SignThenBlank", u"- 5", 0}, Row{"Point", u"3.9", 3},
                    Row{"ArabicIndic", u"\u0662\u0660\u0662\u0664", 2024},
                    Row{"Persian", u"\u06f1\u06f4\u06f0\u06f3", 1403}, Row{"Devanagari", u"\u0967\u0968", 12},
                    Row{"Thai", u"\u0e52\u0e55\u0e56\u0e57", 2567}, Row{"FullWidth", u"\uff11\uff12", 12},
                    Row{"ChakmaBeyondThePlane", u"\U00011137\U00011138", 12}, Row{"MixedScripts", u"1\u06f2", 12},
                    Row{"DirectionMarkBefore", u"\u200f\u0665", 5}, Row{"SuperscriptIsNoDigit", u"\u00b2", 0},
                    Row{"LoneSurrogate", u"5\xd804", 5}, Row{"Largest", u"2147483647", std::numeric_limits<int>::max()},
                    Row{"TooLarge", u"2147483648", std::numeric_limits<int>::max()},
                    Row{"Smallest", u"-2147483648", std::numeric_limits<int>::min()},
                    Row{"TooSmall", u"-99999999999999999999999", std::numeric_limits<int>::min()}),
    [](const testing::TestParamInfo<Row>& row) { return std::string(row.param.name); });

} // namespace
