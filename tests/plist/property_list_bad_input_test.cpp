// SPDX-License-Identifier: MIT
#include "plist/property_list_samples.h"

#include <gtest/gtest.h>

namespace {

using namespace std::string_literals;

std::string copiesOf(const std::string& text, int times)
{
    std::string result;
    for (int i = 0; i < times; ++i) {
        result += text;
    }
    return result;
}

std::string nested(int arrays)
{
    return "<plist>" + copiesOf("<array>", arrays) + copiesOf("</array>", arrays) + "</plist>";
}

/// A binary list of `objects`, each as its bytes; the first is the root. References and offsets have two bytes.
std::string smallBinaryList(const std::vector<std::string>& objects)
{
    const auto number = [](std::size_t value, int width) {
        std::string bytes;
        for (int shift = 8 * (width - 1); shift >= 0; shift -= 8) {
            bytes += static_cast<char>(value >> shift & 0xFF);
        }
        return bytes;
    };
    std::string list = "bplist00";
    std::string offsets;
    for (const std::string& object : objects) {
        offsets += number(list.size(), 2);
        list += object;
    }
    const std::size_t offsetTable = list.size();
    return list + offsets + copiesOf("\0"s, 6) + "\2\2" + number(objects.size(), 8) + number(0, 8) +
           number(offsetTable, 8);
}

struct BadInput {
    const char* name;
    std::string bytes;
};

// Each of these is no table at all.
const BadInput unreadable[] = {
    {"empty file", ""},
    {"blanks only", " \n"},
    {"not XML", "Dear diary"},
    {"a byte order mark only", "\xEF\xBB\xBF"},
    {"root is a dictionary", "<plist><dict/></plist>"},
    {"root is a text", "<plist><string>x</string></plist>"},
    {"no root", "<plist/>"},
    {"two roots", "<plist><array/><array/></plist>"},
    {"two documents", "<array/><array/>"},
    {"unknown tag", xmlArray("<note>x</note>")},
    {"tag in capitals", xmlArray("<String>x</String>")},
    {"text between the elements", xmlArray("<true/>lost")},
    {"an element inside a text", xmlArray("<string>a<b/>c</string>")},
    {"a boolean with a text", xmlArray("<true>no</true>")},
    {"a key without a value", xmlArray("<dict><key>a</key></dict>")},
    {"a value without a key", xmlArray("<dict><string>a</string></dict>")},
    {"a key after a key", xmlArray("<dict><key>a</key><key>b</key><true/></dict>")},
    {"a key in an array", xmlArray("<key>a</key>")},
    {"no end tag", "<plist><array>"},
    {"crossed end tags", xmlArray("<dict><array></dict></array>")},
    {"invalid UTF-8", xmlArray("<string>\xFF</string>")},
    {"overlong UTF-8", xmlArray("<string>\xC0\x80</string>")},
    {"invalid UTF-8 in a key", xmlArray("<dict><key>\xFF</key><true/></dict>")},
    {"half a surrogate pair by reference", xmlArray("<string>&#xD800;</string>")},
    {"U+0000 by reference", xmlArray("<string>a&#0;b</string>")},
    {"U+0000 by hexadecimal reference", xmlArray("<string>a&#x00;b</string>")},
    {"a zero byte", xmlArray("<string>a\0b</string>"s)},
    {"half a surrogate pair in UTF-16", "\xFF\xFE<\0a\0r\0r\0a\0y\0/\0>\0<\0!\0-\0-\0\0\xD8-\0-\0>\0"s},
    {"half a unit of UTF-16", "\xFF\xFE<\0a\0r\0r\0a\0y\0/\0>\0\n"s},
    {"nested 513 deep", nested(513)},
    {"nested 100,000 deep", nested(100'000)},
    {"nested 100,000 deep and cut off", copiesOf("<array>", 100'000)},
    {"integer without digits", xmlArray("<integer/>")},
    {"integer with letters", xmlArray("<integer>12a</integer>")},
    {"integer with two signs", xmlArray("<integer>+-1</integer>")},
    {"integer above 64 bits", xmlArray("<integer>18446744073709551616</integer>")},
    {"integer below 64 bits", xmlArray("<integer>-9223372036854775809</integer>")},
    {"real without digits", xmlArray("<real></real>")},
    {"real with a decimal comma", xmlArray("<real>1,5</real>")},
    {"data not in base64", xmlArray("<data>?</data>")},
    {"date without a time", xmlArray("<date>2024-02-29</date>")},
    {"date with a zone", xmlArray("<date>2024-02-29T00:00:00+01:00</date>")},
    {"30 February", xmlArray("<date>2024-02-30T00:00:00Z</date>")},
    {"29 February of no leap year", xmlArray("<date>1900-02-29T00:00:00Z</date>")},
    {"month 13", xmlArray("<date>2024-13-01T00:00:00Z</date>")},
    {"month 0", xmlArray("<date>2024-00-01T00:00:00Z</date>")},
    {"day 0", xmlArray("<date>2024-01-00T00:00:00Z</date>")},
    {"hour 25", xmlArray("<date>2024-01-01T25:00:00Z</date>")},
    {"hour 24", xmlArray("<date>2024-01-01T24:00:00Z</date>")},
    {"minute 60", xmlArray("<date>2024-01-01T00:60:00Z</date>")},
    {"second 60", xmlArray("<date>2024-01-01T00:00:60Z</date>")},
    {"date with a sign in a field", xmlArray("<date>2024-01-01T-1:00:00Z</date>")},
    {"year beyond the calendar", xmlArray("<date>99999-01-01T00:00:00Z</date>")},
    {"binary: header only", "bplist00"},
    {"binary: an array that holds itself", smallBinaryList({"\xA1\0\0"s})},
    {"binary: two that hold each other", smallBinaryList({"\xA1\0\1"s, "\xA1\0\0"s})},
    {"binary: a dictionary that holds itself", smallBinaryList({"\xA1\0\1"s, "\xD1\0\2\0\1"s, "\x51k"s})},
    {"binary: reference out of range", smallBinaryList({"\xA1\0\7"s})},
    {"binary: count beyond the file", smallBinaryList({"\xAF\x12\x7F\xFF\xFF\xFF"s})},
    {"binary: count of 2^64 - 1", smallBinaryList({"\xAF\x13\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF"s})},
    {"binary: text beyond the file", smallBinaryList({"\xA1\0\1"s, "\x5F\x11\xFF\xFF"s})},
    {"binary: key that is no text", smallBinaryList({"\xA1\0\1"s, "\xD1\0\2\0\2"s, "\x10\1"s})},
    {"binary: null, which XML does not have", smallBinaryList({"\xA1\0\1"s, "\0"s})},
    {"binary: text that is neither ASCII nor UTF-8", smallBinaryList({"\xA1\0\1"s, "\x51\xFF"s})},
    {"binary: integer of 65 bits", smallBinaryList({"\xA1\0\1"s, "\x14\0\0\0\0\0\0\0\1\0\0\0\0\0\0\0\0"s})},
    {"binary: date that is not a number", smallBinaryList({"\xA1\0\1"s, "\x33\x7F\xF8\0\0\0\0\0\0"s})},
};

TEST(PropertyListBadInput, GivesNoTable)
{
    for (const BadInput& row : unreadable) {
        EXPECT_FALSE(PropertyList::readTable(row.bytes)) << row.name;
        EXPECT_FALSE(PropertyList::readTable(inPlainForm(row.bytes))) << row.name << ", plain";
    }
}

TEST(PropertyListBadInput, UnusualInputIsReadAllTheSame)
{
    const struct {
        const char* name;
        std::string bytes;
        Table table;
    } rows[] = {
        {"entities are not expanded",
         "<!DOCTYPE plist [<!ENTITY a \"aa\"><!ENTITY b \"&a;&a;\">]><array><string>&b;</string></array>",
         {Value("&b;")}},
        {"binary: integers of 1, 2, 4, 8 and 16 bytes",
         smallBinaryList({"\xA5\0\1\0\2\0\3\0\4\0\5"s, "\x10\xFF"s, "\x11\xFF\xFF"s, "\x12\xFF\xFF\xFF\xFF"s,
                          "\x13\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFE"s,
                          "\x14\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFD"s}),
         {integer(255), integer(65535), integer(4294967295), integer(-2), integer(-3)}},
        {"binary: a real of four bytes", smallBinaryList({"\xA1\0\1"s, "\x22\x3F\xC0\0\0"s}), {Value(1.5)}},
        {"binary: a date of 2 January 2001",
         smallBinaryList({"\xA1\0\1"s, "\x33\x40\xF5\x18\0\0\0\0\0"s}),
         {dateAt(978307200 + 86400)}},
        {"binary: halves of surrogate pairs",
         smallBinaryList({"\xA1\0\1"s, "\x64\0a\xD8\0\0b\xDC\0"s}),
         {Value("a\uFFFD"
                "b\uFFFD")}},
        {"binary: a surrogate pair", smallBinaryList({"\xA1\0\1"s, "\x62\xD8\x3D\xDE\0"s}), {Value("😀")}},
        {"binary: an identifier",
         smallBinaryList({"\xA1\0\1"s, "\x81\1\0"s}),
         {Value(Dictionary{{"CF$UID", integer(256)}})}},
        {"binary: a set becomes an array",
         smallBinaryList({"\xA1\0\1"s, "\xC1\0\2"s, "\x09"s}),
         {Value(Array{Value(true)})}},
        {"binary: a repeated key",
         smallBinaryList({"\xA1\0\1"s, "\xD2\0\2\0\2\0\3\0\4"s, "\x51k"s, "\x08"s, "\x09"s}),
         {Value(Dictionary{{"k", Value(true)}})}},
        {"binary: one text in two places", smallBinaryList({"\xA2\0\1\0\1"s, "\x51x"s}), {Value("x"), Value("x")}},
    };
    for (const auto& row : rows) {
        EXPECT_TRUE(PropertyList::readTable(row.bytes) == row.table) << row.name;
        EXPECT_TRUE(PropertyList::readTable(inPlainForm(row.bytes)) == row.table) << row.name << ", plain";
    }
    EXPECT_TRUE(PropertyList::readTable(nested(512)));
}

TEST(PropertyListBadInput, SharingThatWouldFillTheMemoryWhenWrittenIsRefused)
{
    const auto doubled = [](int levels) {
        std::vector<std::string> objects;
        for (int i = 1; i <= levels; ++i) {
            const std::string next{'\0', static_cast<char>(i)};
            objects.push_back("\xA2" + next + next);
        }
        objects.emplace_back("\x51x");
        return smallBinaryList(objects);
    };
    EXPECT_TRUE(PropertyList::readTable(doubled(8)));
    EXPECT_FALSE(PropertyList::readTable(doubled(100)));
}

TEST(PropertyListBadInput, DepthCountsThroughSharedObjects)
{
    // The root names every array of a chain, the innermost first, so that each has been read when the next asks for it.
    const auto chain = [](int arrays) {
        const auto reference = [](int index) {
            return std::string{static_cast<char>(index / 256), static_cast<char>(index)};
        };
        std::string root = "\xAF\x11" + reference(arrays);
        std::vector<std::string> objects{""};
        for (int i = 1; i <= arrays; ++i) {
            root += reference(i);
            objects.push_back(i == 1 ? "\xA0" : "\xA1" + reference(i - 1));
        }
        objects[0] = root;
        return smallBinaryList(objects);
    };
    EXPECT_TRUE(PropertyList::readTable(chain(511)));
    EXPECT_FALSE(PropertyList::readTable(chain(512)));
    EXPECT_FALSE(PropertyList::readTable(chain(9000)));
}

TEST(PropertyListBadInput, OverlappingObjectsAreRefused)
{
    // A thousand entries of the offset table lead to the same array of a thousand references.
    constexpr int count = 1000;
    const std::string array = "\xAF\x11\x03\xE8"s + copiesOf("\0\1"s, count);
    std::string list = smallBinaryList(std::vector<std::string>{array});
    const std::size_t offsetTable = list.size() - 32 - 2;
    list.resize(offsetTable);
    list += copiesOf("\0\x08"s, count) + copiesOf("\0"s, 6) + "\2\2" + "\0\0\0\0\0\0\x03\xE8"s + copiesOf("\0"s, 8) +
            "\0\0\0\0\0\0"s + static_cast<char>(offsetTable >> 8) + static_cast<char>(offsetTable & 0xFF);
    EXPECT_FALSE(PropertyList::readTable(list));
}

TEST(PropertyListBadInput, AFileCutOffAnywhereGivesNoTable)
{
    const std::string xml = PropertyList::writeXml(everyType().mid(0, 3));
    const std::size_t end = xml.size() - 1; // the line feed behind the last tag may be missing
    for (std::size_t length = 0; length < end; ++length) {
        EXPECT_FALSE(PropertyList::readTable(xml.substr(0, length))) << length;
    }
    EXPECT_TRUE(PropertyList::readTable(xml.substr(0, end)));

    const std::string binary = sampleFile("types.binary");
    ASSERT_TRUE(PropertyList::readTable(binary));
    for (std::size_t length = 0; length < binary.size(); ++length) {
        EXPECT_FALSE(PropertyList::readTable(binary.substr(0, length))) << length;
    }
}

// What a changed byte gives is not promised but for this: an end, and a table that can be written and read back.
TEST(PropertyListBadInput, NoChangedByteBreaksTheReader)
{
    for (const char* name : {"types.binary", "types.xml"}) {
        const std::string whole = sampleFile(name);
        ASSERT_FALSE(whole.empty());
        for (std::size_t at = 0; at < whole.size(); ++at) {
            for (const int change : {0x01, 0x10, 0x80, 0xFF}) {
                std::string changed = whole;
                changed[at] = static_cast<char>(changed[at] ^ change);
                if (const std::optional<Table> table = PropertyList::readTable(changed)) {
                    EXPECT_TRUE(PropertyList::readTable(PropertyList::writeXml(*table))) << name << ' ' << at;
                }
            }
        }
    }
}

TEST(PropertyListBadInput, IsNoErrorOfTheSystems)
{
    std::string bytes = "no list";
    std::error_code error = std::make_error_code(std::errc::not_enough_memory); // of another call
    EXPECT_FALSE(PropertyList::readTableInPlace(bytes, error));
    EXPECT_FALSE(error);
}

} // namespace
