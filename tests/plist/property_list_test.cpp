// SPDX-License-Identifier: MIT
#include "plist/property_list_samples.h"

#include <gtest/gtest.h>

#include <cmath>
#include <future>
#include <vector>

namespace {

void expectSameAfterWriting(const Table& table)
{
    const std::optional<Table> again = PropertyList::readTable(PropertyList::writeXml(table));
    ASSERT_TRUE(again);
    EXPECT_TRUE(*again == table);
}

std::optional<std::string> textIn(const std::string& xml)
{
    const std::optional<Table> table = PropertyList::readTable(xml);
    const auto text = table && table->size() == 1 ? table->front().text() : std::nullopt;
    return text ? std::optional(std::string(*text)) : std::nullopt;
}

TEST(PropertyList, EveryTypeReadsFromTheXmlOfAnotherProgram)
{
    EXPECT_TRUE(PropertyList::readTable(sampleFile("types.xml")) == everyType());
}

TEST(PropertyList, EveryTypeReadsFromTheBinaryFormOfAnotherProgram)
{
    EXPECT_TRUE(PropertyList::readTable(sampleFile("types.binary")) == everyType());
}

TEST(PropertyList, EveryTypeIsTheSameAfterWritingAndReading)
{
    expectSameAfterWriting(everyType());
    expectSameAfterWriting({Value(std::nan("")), Value(-0.0), Value(5e-324), Value(-1e300)});
    expectSameAfterWriting({});
}

TEST(PropertyList, TheOrderOfADictionaryIsKept)
{
    const std::optional<Table> table = PropertyList::readTable(sampleFile("types.xml"));
    ASSERT_TRUE(table && table->size() > 1);
    const DictionaryView dictionary = table->at(1).dictionary();
    ASSERT_TRUE(dictionary);
    EXPECT_EQ((*dictionary.begin()).key, "zebra");
    const std::string xml = PropertyList::writeXml(*table);
    EXPECT_LT(xml.find("<key>zebra"), xml.find("<key>apple"));
}

TEST(PropertyList, ANoteIsWrittenInTheFormOfThePlatform)
{
    const Table table{Value(
        Dictionary{{"NoteDateKey", dateAt(1709164800)}, {"NoteDataKey", Value("a\r\n<b> & ]]>\x01 \xEF\xBF\xBF")}})};
    EXPECT_EQ(PropertyList::writeXml(table), R"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE plist PUBLIC "-//Apple//DTD PLIST 1.0//EN" "http://www.apple.com/DTDs/PropertyList-1.0.dtd">
<plist version="1.0">
<array>
	<dict>
		<key>NoteDateKey</key>
		<date>2024-02-29T00:00:00Z</date>
		<key>NoteDataKey</key>
		<string>a&#13;
&lt;b&gt; &amp; ]]&gt;)"
                                             "\uFFFD \uFFFD"
                                             R"(</string>
	</dict>
</array>
</plist>
)");
}

TEST(PropertyList, TextsAreTheSameAfterWritingAndReading)
{
    std::string longNote;
    while (longNote.size() < 4'000'000) {
        longNote += "\U0001F600"; // a million characters
    }
    for (const std::string& text :
         {std::string(), std::string(" "), std::string("\n\n"), std::string(" \t "), std::string("\r"),
          std::string("a\r\nb\rc\n"), std::string("&amp;"), std::string("]]>"), std::string("<![CDATA[x]]>"),
          std::string("שלום עולם\u200F"), std::string("👩‍👩‍👧"), std::string("e\u0301"), longNote}) {
        expectSameAfterWriting({Value(text), Value(Dictionary{{text, Value(text)}})});
    }
}

TEST(PropertyList, WhatXmlCannotCarryBecomesAReplacementCharacter)
{
    for (const std::string& text : {std::string("\0", 1), std::string("\x1F"), std::string("\uFFFE"),
                                    std::string("\uFFFF"), std::string("\xFF")}) {
        EXPECT_EQ(textIn(PropertyList::writeXml({Value(text)})), "\uFFFD");
    }
}

// What each text between the tags of a string is, by the rules of XML but for the carriage return, which stays.
TEST(PropertyList, TheTextOfAnElementIsAllOfItsCharacters)
{
    const struct {
        const char* xml;
        const char* text;
    } rows[] = {
        {"", ""},
        {"   ", "   "},
        {"a\rb\r\nc", "a\rb\r\nc"},
        {"&#13;&#xD;", "\r\r"},
        {"&#x1F600;", "😀"},
        {"&lt;&gt;&amp;&quot;&apos;", "<>&\"'"},
        {"<![CDATA[<&]]>", "<&"},
        {" <![CDATA[ a ]]> b", "  a  b"},
        {"a<!-- not this -->b", "ab"},
        {"a<?nor this?>b", "ab"},
        {"&unknown;", "&unknown;"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(textIn(xmlArray("<string>" + std::string(row.xml) + "</string>")), row.text) << row.xml;
    }
}

TEST(PropertyList, XmlMayBeInOtherEncodings)
{
    const std::string utf8 = "<plist><array><string>ü😀</string></array></plist>";
    const std::u16string units = u"<plist><array><string>ü😀</string></array></plist>";
    std::string little;
    std::string big;
    for (const char16_t unit : units) {
        little += {static_cast<char>(unit & 0xFF), static_cast<char>(unit >> 8)};
        big += {static_cast<char>(unit >> 8), static_cast<char>(unit & 0xFF)};
    }
    for (const std::string& xml : {utf8, "\xEF\xBB\xBF" + utf8, "\xFF\xFE" + little, "\xFE\xFF" + big, little, big}) {
        EXPECT_EQ(textIn(xml), "ü😀");
    }
    EXPECT_EQ(textIn("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><array><string>\xFC</string></array>"), "ü");
}

// Seconds from Python: calendar.timegm(datetime(...).timetuple()); the years 0 and 10000, which it lacks, by one second
// more or less.
TEST(PropertyList, DatesOfAnyYearAreReadAndWritten)
{
    const struct {
        const char* text;
        double seconds;
    } rows[] = {
        {"0001-01-01T00:00:00Z", -62135596800},
        {"0000-12-31T23:59:59Z", -62135596801},
        {"1600-02-29T12:00:00Z", -11670955200},
        {"1899-12-31T23:59:59Z", -2208988801},
        {"1920-05-06T07:08:09Z", -1567011111},
        {"1969-12-31T23:59:59Z", -1},
        {"1970-01-01T00:00:00Z", 0},
        {"2085-06-01T00:00:00Z", 3642192000},
        {"9999-12-31T23:59:59Z", 253402300799},
        {"10000-01-01T00:00:00Z", 253402300800},
    };
    for (const auto& row : rows) {
        const Table table{dateAt(row.seconds)};
        const std::string element = "<date>" + std::string(row.text) + "</date>";
        EXPECT_TRUE(PropertyList::readTable(xmlArray(element)) == table) << row.text;
        EXPECT_NE(PropertyList::writeXml(table).find(element), std::string::npos) << PropertyList::writeXml(table);
    }
}

TEST(PropertyList, FractionsOfASecondAreCutOffTowardsThePast)
{
    EXPECT_NE(PropertyList::writeXml({dateAt(0.75)}).find("1970-01-01T00:00:00Z"), std::string::npos);
    EXPECT_NE(PropertyList::writeXml({dateAt(-0.25)}).find("1969-12-31T23:59:59Z"), std::string::npos);
}

TEST(PropertyList, DatesThatCannotBeNamedAreWrittenAsTheNearest)
{
    EXPECT_NE(PropertyList::writeXml({dateAt(1e300)}).find("<date>32767-12-31T23:59:59Z"), std::string::npos);
    EXPECT_NE(PropertyList::writeXml({dateAt(-INFINITY)}).find("<date>-32767-01-01T00:00:00Z"), std::string::npos);
    EXPECT_NE(PropertyList::writeXml({dateAt(NAN)}).find("<date>1970-01-01T00:00:00Z"), std::string::npos);
}

// As Python's plistlib: the last value counts, in the first one's place.
TEST(PropertyList, OfARepeatedKeyTheLastValueCounts)
{
    EXPECT_TRUE(PropertyList::readTable(xmlArray("<dict><key>a</key><true/><key>b</key><string/><key>a</key>"
                                                 "<false/></dict>")) ==
                Table{Value(Dictionary{{"a", Value(false)}, {"b", Value("")}})});
    std::string many;
    for (int i = 0; i < 40; ++i) {
        many += "<key>" + std::to_string(i % 20) + "</key><integer>" + std::to_string(i) + "</integer>";
    }
    const std::optional<Table> table = PropertyList::readTable(xmlArray("<dict>" + many + "</dict>"));
    ASSERT_TRUE(table && table->front().dictionary());
    EXPECT_EQ(table->front().dictionary()->size(), 20U);
    EXPECT_EQ((*table->front().dictionary()->begin()).key, "0");
    EXPECT_EQ(*table->front().dictionary()->find("0")->integer(), (Integer{20, false}));
}

TEST(PropertyList, ElementsOfAnyTypeAreKept)
{
    expectSameAfterWriting({Value("no record"), Value(Array{Value(Dictionary{{"NoteDataKey", integer(-3)}})})});
    EXPECT_TRUE(PropertyList::readTable("<array><string>bare</string></array>") == Table{Value("bare")});
    EXPECT_TRUE(PropertyList::readTable(xmlArray("<integer> +12 </integer><integer>-0x10</integer><real>+inf</real>"
                                                 "<integer>-0</integer><data> AP\n8Q </data>")) ==
                (Table{integer(12), integer(-16), Value(std::numeric_limits<double>::infinity()), integer(0),
                       Value(std::vector{std::byte{0x00}, std::byte{0xFF}, std::byte{0x10}})}));
}

// As Python's plistlib reads the same bytes.
TEST(PropertyList, BlanksBesideCommentsAndSectionsBelongToTheText)
{
    const std::string empty = PropertyList::writeXml({});
    for (const char* element : {"<string> <!-- no text --> </string>", "<string> <?no text?> </string>",
                                "<string><![CDATA[ ]]> </string>", "<string>  </string>"}) {
        std::string xml = empty;
        xml.replace(xml.find("<array/>"), 8, std::string("<array> ").append(element).append("\n</array>"));
        EXPECT_EQ(textIn(xml), "  ") << element;
    }
}

// Table 3-7 of the Unicode Standard, from which each row takes or misses one limit.
TEST(PropertyList, OnlyWellFormedUtf8IsRead)
{
    struct Row {
        const char* bytes;
        bool isRead;
    };
    constexpr Row rows[] = {
        {"\xC2\x80", true},
        {"\xC1\xBF", false},
        {"\xDF\xBF", true},
        {"\xC2", false},
        {"\x80", false},
        {"\xC2\x80\x80", false},
        {"\xE0\xA0\x80", true},
        {"\xE0\x9F\xBF", false},
        {"\xED\x9F\xBF", true},
        {"\xED\xA0\x80", false},
        {"\xEE\x80\x80", true},
        {"\xE2\x82", false},
        {"\xE2\x41\x82", false},
        {"\xE2\x82\x41", false},
        {"\xE2\x82\xC2\x80", false},
        {"\xF0\x90\x80\x80", true},
        {"\xF0\x8F\xBF\xBF", false},
        {"\xF4\x8F\xBF\xBF", true},
        {"\xF4\x90\x80\x80", false},
        {"\xF5\x80\x80\x80", false},
        {"\xF0\x9F\x98", false},
        {"\xF0\x9F\x98\x41", false},
        {"\xFF", false},
        {"\xC2\x80\xC3\xBF", true},
    };
    for (const Row& row : rows) {
        for (const std::size_t before : {0, 1, 2, 3, 13, 62, 63, 64, 200}) {
            for (const std::size_t behind : {0, 1, 3, 70}) {
                const std::string text = std::string(before, 'a').append(row.bytes).append(behind, 'z');
                const std::string element = std::string("<string>").append(text).append("</string>");
                EXPECT_EQ(textIn(xmlArray(element)), row.isRead ? std::optional(text) : std::nullopt)
                    << before << ' ' << testing::PrintToString(row.bytes) << ' ' << behind;
            }
        }
    }
}

// Files beyond a megabyte are parsed in memory of their own, several blocks of it here.
TEST(PropertyList, LargeListsAreReadOnSeveralThreadsAtOnce)
{
    Table large(300'000, Value(true));
    large.append(Value("the last"));
    const std::string xml = PropertyList::writeXml(large);
    std::vector<std::future<bool>> readers;
    for (int i = 0; i < 3; ++i) {
        readers.push_back(std::async(std::launch::async, [&] { return PropertyList::readTable(xml) == large; }));
    }
    for (std::future<bool>& reader : readers) {
        EXPECT_TRUE(reader.get());
    }
    expectSameAfterWriting(everyType());
}

TEST(PropertyList, WhatIsWrittenInPiecesIsTheSame)
{
    Table table = everyType();
    table.append(Value(std::string(700'000, 'x')));
    std::string joined;
    int pieces = 0;
    EXPECT_FALSE(PropertyList::writeXml(table, [&](std::string_view piece) {
        joined += piece;
        ++pieces;
        return std::error_code();
    }));
    EXPECT_GT(pieces, 2);
    EXPECT_TRUE(PropertyList::readTable(joined) == table);
}

TEST(PropertyList, AnErrorEndsTheWriting)
{
    const Table table(50'000, Value("A text that is long enough to fill several pieces."));
    int pieces = 0;
    const std::error_code error = PropertyList::writeXml(table, [&](std::string_view) {
        return ++pieces < 2 ? std::error_code() : std::make_error_code(std::errc::io_error);
    });
    EXPECT_EQ(error, std::errc::io_error);
    EXPECT_EQ(pieces, 2);
}

} // namespace
