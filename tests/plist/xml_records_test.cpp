// SPDX-License-Identifier: MIT
// A list of dated texts in its usual form is read in one pass, and is what the general reader makes of it.
#include "plist/PropertyList.h"
#include "plist/PropertyListParts.h"

#include <gtest/gtest.h>

#include <random>

namespace xml_records_test {
namespace {

using namespace std::string_literals;

constexpr Date noon = dateFromUnixSeconds(1'700'049'600); // 2023-11-15T12:00:00Z

Value record(Date date, const std::string& text)
{
    return Value(Dictionary{{"DateKey", Value(date)}, {"TextKey", Value(text)}});
}

Value recordWithTextFirst(Date date, const std::string& text)
{
    return Value(Dictionary{{"TextKey", Value(text)}, {"DateKey", Value(date)}});
}

/// Expects one pass and the general reader to read what was written.
void expectReadInOnePass(const Table& table)
{
    const std::string xml = PropertyList::writeXml(table);
    const std::optional<Array> records = PropertyList::readRecords(xml);
    ASSERT_TRUE(records) << xml;
    EXPECT_TRUE(*records == table) << xml;
    EXPECT_EQ(PropertyList::writeXml(*records), xml);
    std::string bytes = xml;
    EXPECT_TRUE(PropertyList::readAnyXml(bytes) == Value(table)) << xml;
}

std::string oneRecord(const std::string& text)
{
    return PropertyList::writeXml({record(noon, text)});
}

std::string replaced(std::string text, std::string_view part, std::string_view by)
{
    const std::size_t at = text.find(part);
    return at == std::string::npos ? "" : text.replace(at, part.size(), by);
}

TEST(XmlRecords, BothOrdersOfTheKeysAreReadAndKept)
{
    expectReadInOnePass({record(noon, "first"), recordWithTextFirst(noon, "second"), record(noon, "")});
}

TEST(XmlRecords, TextsAreWhatTheirEscapesStandFor)
{
    expectReadInOnePass({record(noon, "a < b && b > a"), record(noon, "carriage\rreturn\r\n\ttab"),
                         record(noon, " \n "), record(noon, "\uFEFF\uFFFD\uF000 日本語 🎈"), record(noon, "&amp;")});
}

TEST(XmlRecords, AnyTableReadsAlike)
{
    std::mt19937 random(20);
    const std::string pieces[] = {"a", "&",      "<",      ">", "\r",    "\n",  "\t",
                                  "é", "\uFFFD", "\uFEFF", "🎈", "&#13;", "]]>", " "};
    for (int run = 0; run < 300; ++run) {
        Table table;
        for (std::size_t i = 0; i <= random() % 20; ++i) {
            std::string text;
            const std::size_t size = random() % 40 == 0 ? 70'000 : random() % 30;
            while (text.size() < size) {
                text += pieces[random() % std::size(pieces)];
            }
            const Date date = dateFromUnixSeconds(static_cast<double>(random()) - 2e9);
            table << (random() % 2 == 0 ? record(date, text) : recordWithTextFirst(date, text));
        }
        expectReadInOnePass(table);
    }
}

TEST(XmlRecords, EveryOtherFormIsLeftToTheGeneralReader)
{
    const std::string xml = oneRecord("text");
    ASSERT_TRUE(PropertyList::readRecords(xml));
    const std::string others[] = {
        "",
        xml + " ",
        " " + xml,
        PropertyList::writeXml({}),
        PropertyList::writeXml({Value("text")}),
        PropertyList::writeXml({record(noon, "a"), Value(Dictionary{{"DateKey", Value(noon)}})}),
        PropertyList::writeXml({record(noon, "a"), Value(Dictionary{{"D", Value(noon)}, {"TextKey", Value("b")}})}),
        PropertyList::writeXml({record(noon, "a"), Value(Dictionary{{"DateKey", Value(noon)}, {"T", Value("b")}})}),
        PropertyList::writeXml({Value(Dictionary{{"a&", Value(noon)}, {"b", Value("text")}})}),
        PropertyList::writeXml({Value(Dictionary{{"a", Value(noon)}, {"b&", Value("text")}})}),
        PropertyList::writeXml({Value(Dictionary{{"", Value(noon)}, {"b", Value("text")}})}),
        PropertyList::writeXml({Value(Dictionary{{"a", Value(noon)}, {"b", Value("t")}, {"c", Value("t")}})}),
        replaced(xml, "TextKey", "DateKey"),
        replaced(xml, "\t<dict>", "  <dict>"),
        replaced(xml, "<string>", "<string >"),
        replaced(xml, "text<", "text<!-- --><"),
        replaced(xml, "2023-11-15", "2023-11-31"),
        replaced(xml, "12:00:00Z", "12:00:00Z "),
        replaced(xml, "text<", "te\rxt<"),
        replaced(xml, "text<", "te>xt<"),
        replaced(xml, "text<", "te&quot;xt<"),
        replaced(xml, "text<", "te&#65;xt<"),
        replaced(xml, "text<", "te\x01xt<"),
        replaced(xml, "text<", "te\xFFxt<"),
        replaced(xml, "text<", "te\xEF\xBF\xBExt<"),
        replaced(xml, "text<", "te\xEF\xBF\xBFxt<"),
        replaced(xml, "text<", "te\0xt<"s),
        replaced(xml, "</plist>", "</plist><plist/>"),
    };
    for (const std::string& other : others) {
        EXPECT_FALSE(PropertyList::readRecords(other)) << other;
    }
}

TEST(XmlRecords, AFileThatEndsTooEarlyIsLeftToTheGeneralReader)
{
    const std::string xml = oneRecord("a < b");
    for (std::size_t size = 0; size < xml.size(); ++size) {
        EXPECT_FALSE(PropertyList::readRecords(xml.substr(0, size))) << size;
    }
}

TEST(XmlRecords, ATextOutlivesItsTable)
{
    std::optional<Array> records = PropertyList::readRecords(oneRecord("kept"));
    ASSERT_TRUE(records);
    const Value text = *records->front().dictionary().find("TextKey");
    records.reset();
    EXPECT_EQ(text.text(), "kept");
    EXPECT_EQ(text, Value("kept"));
}

TEST(XmlRecords, ARecordIsADictionaryLikeAnyOther)
{
    const std::optional<Array> records = PropertyList::readRecords(oneRecord("text"));
    ASSERT_TRUE(records);
    const Value& read = records->front();
    EXPECT_EQ(read.type(), Value::Type::DictionaryType);
    EXPECT_EQ(read, record(noon, "text"));
    EXPECT_EQ(read, recordWithTextFirst(noon, "text"));
    EXPECT_EQ(record(noon, "text"), read);
    EXPECT_FALSE(read == record(noon, "other"));
    EXPECT_FALSE(read == Value(Dictionary{{"DateKey", Value(noon)}}));
    EXPECT_FALSE(read == Value("text"));
    EXPECT_FALSE(read.text() || read.array() || read.date());
    EXPECT_EQ(read.dictionary().size(), 2U);
    EXPECT_FALSE(read.dictionary().find("NoKey"));
    EXPECT_TRUE(read.isSameObject(Value(read)));
    EXPECT_FALSE(read.isSameObject(record(noon, "text")));
    Dictionary changed = *read.dictionary();
    changed.set("TextKey", Value("changed"));
    EXPECT_EQ(Value(changed), record(noon, "changed"));
    EXPECT_EQ(read, record(noon, "text"));
}

TEST(XmlRecords, ADatedTextIsTheSameRecordWithItsDateFirst)
{
    const std::string xml = PropertyList::writeXml({recordWithTextFirst(noon, "text")});
    const std::optional<Array> records = PropertyList::readRecords(xml);
    ASSERT_TRUE(records);
    const std::optional<Value> dated = records->front().datedText("DateKey", "TextKey");
    ASSERT_TRUE(dated);
    EXPECT_EQ(PropertyList::writeXml({*dated}), oneRecord("text"));
    EXPECT_TRUE(dated->isSameObject(*dated->datedText("DateKey", "TextKey")));
    EXPECT_FALSE(records->front().datedText("OtherKey", "TextKey"));
    EXPECT_FALSE(records->front().datedText("DateKey", "OtherKey"));
    EXPECT_FALSE(record(noon, "text").datedText("DateKey", "TextKey"));
}

} // namespace
} // namespace xml_records_test
