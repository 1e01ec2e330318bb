// SPDX-License-Identifier: MIT
#include "text/IntegerValue.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

struct IntegerRow {
    const char* name;
    QStringView text;
    int value;
};

class IntegerValueOfText : public testing::TestWithParam<IntegerRow> {};

TEST_P(IntegerValueOfText, IsTheNumberItBeginsWith)
{
    EXPECT_EQ(integerValue(GetParam().text), GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, IntegerValueOfText,
    testing::Values(IntegerRow{"Plain", u"2024", 2024}, IntegerRow{"LeadingZero", u"03", 3},
                    IntegerRow{"Zero", u"0", 0}, IntegerRow{"Empty", u"", 0}, IntegerRow{"Null", QStringView(), 0},
                    IntegerRow{"Words", u"abc", 0}, IntegerRow{"TextBehind", u"12 notes", 12},
                    IntegerRow{"TextBefore", u"a12", 0}, IntegerRow{"Blanks", u" \t\u00a0 7", 7},
                    IntegerRow{"OnlyBlanks", u"   ", 0}, IntegerRow{"Minus", u"-5", -5}, IntegerRow{"Plus", u"+5", 5},
                    IntegerRow{"BlankMinus", u"  -12x", -12}, IntegerRow{"OnlySign", u"-", 0},
                    IntegerRow{"TwoSigns", u"--5", 0}, IntegerRow{"SignThenBlank", u"- 5", 0},
                    IntegerRow{"Point", u"3.9", 3}, IntegerRow{"ArabicIndic", u"\u0662\u0660\u0662\u0664", 2024},
                    IntegerRow{"Persian", u"\u06f1\u06f4\u06f0\u06f3", 1403},
                    IntegerRow{"Devanagari", u"\u0967\u0968", 12},
                    IntegerRow{"Thai", u"\u0e52\u0e55\u0e56\u0e57", 2567}, IntegerRow{"FullWidth", u"\uff11\uff12", 12},
                    IntegerRow{"ChakmaBeyondThePlane", u"\U00011137\U00011138", 12},
                    IntegerRow{"MixedScripts", u"1\u06f2", 12}, IntegerRow{"DirectionMarkBefore", u"\u200f\u0665", 5},
                    IntegerRow{"SuperscriptIsNoDigit", u"\u00b2", 0}, IntegerRow{"LoneSurrogate", u"5\xd804", 5},
                    IntegerRow{"Largest", u"2147483647", std::numeric_limits<int>::max()},
                    IntegerRow{"TooLarge", u"2147483648", std::numeric_limits<int>::max()},
                    IntegerRow{"Smallest", u"-2147483648", std::numeric_limits<int>::min()},
                    IntegerRow{"TooSmall", u"-99999999999999999999999", std::numeric_limits<int>::min()}),
    [](const testing::TestParamInfo<IntegerRow>& row) { return std::string(row.param.name); });

} // namespace
