// SPDX-License-Identifier: MIT
#include "text/TextLines.h"

#include <gtest/gtest.h>

#include <string>

namespace {

QStringList texts(const QString& text, int first, int limit)
{
    QStringList lines;
    for (const QStringView line : linesOf(text, first, limit)) {
        lines.append(line.toString());
    }
    return lines;
}

TEST(TextLines, SplitsAtEveryNewlineCharacterAndAtNothingElse)
{
    // Counted by hand. U+0085 is C2 85, U+2028 and U+2029 are E2 80 A8 and E2 80 A9.
    struct {
        std::string text;
        std::size_t lines;
    } const rows[] = {
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
    for (const auto& row : rows) {
        EXPECT_EQ(countOfLines(row.text), row.lines) << testing::PrintToString(row.text);
    }
}

TEST(TextLines, CountsNewlinesAtEveryPlaceOfALongText)
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

TEST(TextLines, CountsManyNewlines)
{
    EXPECT_EQ(countOfLines(std::string(100'000, '\n')), 100'001U);
}

TEST(TextLines, ReadsNothingBehindTheText)
{
    const std::string whole = "a\xE2\x80\xA8\n";
    EXPECT_EQ(countOfLines(std::string_view(whole).substr(0, 3)), 1U);
    EXPECT_EQ(countOfLines(std::string_view(whole).substr(0, 4)), 2U);
}

TEST(TextLines, FallApartAtEveryNewlineCharacter)
{
    struct {
        QString text;
        QStringList lines;
    } const table[] = {
        {u""_qs, {u""_qs}},
        {u"a"_qs, {u"a"_qs}},
        {u"a\nb"_qs, {u"a"_qs, u"b"_qs}},
        {u"a\rb"_qs, {u"a"_qs, u"b"_qs}},
        {u"a\r\nb"_qs, {u"a"_qs, u""_qs, u"b"_qs}},
        {u"a\u000Bb\u000Cc"_qs, {u"a"_qs, u"b"_qs, u"c"_qs}},
        {u"a\u0085b\u2028c\u2029d"_qs, {u"a"_qs, u"b"_qs, u"c"_qs, u"d"_qs}},
        {u"a\n"_qs, {u"a"_qs, u""_qs}},
        {u"tab\tstays, so does \u00A0"_qs, {u"tab\tstays, so does \u00A0"_qs}},
    };
    for (const auto& row : table) {
        EXPECT_EQ(texts(row.text, 0, 100), row.lines) << row.text.toStdString();
        EXPECT_EQ(countOfLines(row.text.toStdString()), row.lines.size()) << row.text.toStdString();
    }
}

TEST(TextLines, CanBeTakenFromAnywhere)
{
    const QString text = u"0\n1\n2\n3"_qs;
    EXPECT_EQ(texts(text, 1, 2), (QStringList{u"1"_qs, u"2"_qs}));
    EXPECT_EQ(texts(text, 3, 5), QStringList{u"3"_qs});
    EXPECT_TRUE(texts(text, 4, 1).isEmpty());
    EXPECT_TRUE(texts(text, 0, 0).isEmpty());
}

TEST(TextLines, AreReadWithOneLineFeedForEachBreak)
{
    EXPECT_EQ(withLineFeeds(u"a\r\nb\rc\n\rd"_qs), u"a\nb\nc\n\nd"_qs);
    EXPECT_EQ(withLineFeeds(u"a\u000Bb\u000Cc\u0085d\u2028e\u2029f"_qs), u"a\nb\nc\nd\ne\nf"_qs);
    EXPECT_EQ(withLineFeeds(u"tab\tand \u00A0"_qs), u"tab\tand \u00A0"_qs);
}

} // namespace
