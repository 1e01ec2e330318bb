// SPDX-License-Identifier: MIT
#include "text/TextLines.h"

#include <gtest/gtest.h>

#include <string>

namespace {

struct Row {
    std::string text;
    std::size_t lines;
};

TEST(TextLines, splitsAtEveryNewlineCharacterAndAtNothingElse)
{
    // Counted by hand. U+0085 is C2 85, U+2028 and U+2029 are E2 80 A8 and E2 80 A9.
    const Row rows[] = {
        {"", 1},
        {"one", 1},
        {"one\ntwo\nthree", 3},
        {"\n", 2},
        {"trailing\n", 2},
        {"a\rb", 2},
        {"a\r\nb", 3}, // CR LF splits twice
        {"a\n\rb", 3},
        {"a\vb\fc", 3},
        {"a\tb c\x1F\x0E", 1},
        {"a\xC2\x85"
         "b",
         2},
        {"a\xE2\x80\xA8"
         "b\xE2\x80\xA9",
         3},
        {"\xE2\x80\xA7 \xE2\x80\xAA", 1},                        // the neighbours of the separators
        {"\xC2\x84\xC2\x86\xC3\x85\xE3\x80\xA8\xE2\x81\xA8", 1}, // one byte different
        {"\xC2", 1},                                             // cut short
        {"\xE2\x80", 1},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(countOfLines(row.text), row.lines) << testing::PrintToString(row.text);
    }
}

TEST(TextLines, countsNewlinesAtEveryPlaceOfALongText)
{
    const std::string newlines[] = {"\n", "\xC2\x85", "\xE2\x80\xA8"};
    for (const std::string& newline : newlines) {
        for (std::size_t before = 0; before < 400; ++before) {
            for (const std::size_t after : {std::size_t{0}, std::size_t{1}, std::size_t{127}, std::size_t{300}}) {
                const std::string text = std::string(before, 'x') + newline + std::string(after, 'x');
                ASSERT_EQ(countOfLines(text), 2U) << before << " before, " << after << " after";
            }
        }
    }
}

TEST(TextLines, countsManyNewlines)
{
    EXPECT_EQ(countOfLines(std::string(100'000, '\n')), 100'001U);
}

TEST(TextLines, readsNothingBehindTheText)
{
    const std::string whole = "a\xE2\x80\xA8\n";
    EXPECT_EQ(countOfLines(std::string_view(whole).substr(0, 3)), 1U);
    EXPECT_EQ(countOfLines(std::string_view(whole).substr(0, 4)), 2U);
}

} // namespace
