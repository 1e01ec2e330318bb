// SPDX-License-Identifier: MIT
// Files that are made to take far more memory or time than they have bytes.
#include "plist/PropertyListParts.h"
#include "plist/XmlOutline.h"
#include "plist/property_list_samples.h"

#include <gtest/gtest.h>

#include <array>
#include <functional>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using namespace std::string_literals;

constexpr std::size_t million = 1'000'000;

std::string repeated(std::string_view text, std::size_t bytes)
{
    std::string result;
    result.reserve(bytes + text.size());
    while (result.size() < bytes) {
        result += text;
    }
    return result;
}

std::string numbers(std::initializer_list<std::uint64_t> values)
{
    std::string bytes;
    for (const std::uint64_t value : values) {
        for (int shift = 56; shift >= 0; shift -= 8) {
            bytes += static_cast<char>(value >> shift & 0xFF);
        }
    }
    return bytes;
}

/// A binary list of `objects`, the first of which is the root. References have one byte.
std::string binaryList(std::initializer_list<std::string> objects)
{
    std::string list = "bplist00";
    std::string offsets;
    for (const std::string& object : objects) {
        offsets += numbers({list.size()});
        list += object;
    }
    const std::size_t table = list.size();
    return list + offsets + "\0\0\0\0\0\0\x08\1"s + numbers({objects.size(), 0, table});
}

std::string word(std::size_t value)
{
    return numbers({value}).substr(4);
}

/// A binary list of `count` objects like that one. To it, true has the number 1 and a key the number 2.
std::string binaryListOfMany(const std::string& object, std::size_t count)
{
    std::string list = "bplist00\xAF\x12" + word(count);
    for (std::size_t i = 0; i < count; ++i) {
        list += word(i + 3);
    }
    std::string offsets = word(8) + word(list.size()) + word(list.size() + 1);
    list += "\x09\x51k";
    for (std::size_t i = 0; i < count; ++i) {
        offsets += word(list.size());
        list += object;
    }
    const std::size_t table = list.size();
    return list + offsets + "\0\0\0\0\0\0\4\4"s + numbers({count + 3, 0, table});
}

/// As many objects as the table has bytes, all of them the same one.
std::string objectsInOnePlace(std::size_t objects)
{
    return "bplist00\xA0" + repeated("\x08", objects) + "\0\0\0\0\0\0\1\1"s + numbers({objects, 0, 9});
}

std::string inUtf16(const std::string& ascii)
{
    std::string bytes = "\xFF\xFE";
    for (const char c : ascii) {
        bytes += c;
        bytes += '\0';
    }
    return bytes;
}

struct Hostile {
    const char* name;
    std::function<std::string(std::size_t bytes)> make;

    friend std::ostream& operator<<(std::ostream& out, const Hostile& kind) { return out << kind.name; }
};

const Hostile hostile[] = {
    {"empty arrays", [](std::size_t n) { return plainArray(repeated("<array/>", n)); }},
    {"empty arrays with two tags", [](std::size_t n) { return plainArray(repeated("<array></array>", n)); }},
    {"empty dictionaries", [](std::size_t n) { return plainArray(repeated("<dict/>", n)); }},
    {"empty texts", [](std::size_t n) { return plainArray(repeated("<string/>", n)); }},
    {"short texts", [](std::size_t n) { return plainArray(repeated("<string>a</string>", n)); }},
    {"short data", [](std::size_t n) { return plainArray(repeated("<data>AAAA</data>", n)); }},
    {"true", [](std::size_t n) { return plainArray(repeated("<true/>", n)); }},
    {"true inside one array",
     [](std::size_t n) { return plainArray("<array>" + repeated("<true/>", n) + "</array>"); }},
    {"one dictionary of empty keys",
     [](std::size_t n) { return plainArray("<dict>" + repeated("<key/><true/>", n) + "</dict>"); }},
    {"small dictionaries", [](std::size_t n) { return plainArray(repeated("<dict><key/><true/></dict>", n)); }},
    {"arrays in arrays", [](std::size_t n) { return plainArray(repeated("<array><array/></array>", n)); }},
    {"deep nests",
     [](std::size_t n) {
         return plainArray(repeated(repeated("<array>", 7 * 500) + repeated("</array>", 8 * 500), n));
     }},
    {"end tags without an end", [](std::size_t n) { return repeated("</", n); }},
    {"end tags without an end, inside", [](std::size_t n) { return plainArray(repeated("</", n)); }},
    {"tags without an end", [](std::size_t n) { return plainArray(repeated("<a", n)); }},
    {"true apart", [](std::size_t n) { return xmlArray("<true a=\"\"/>" + repeated("<true/> ", n)); }},
    {"true apart, and a comment at the end",
     [](std::size_t n) { return plainArray(repeated("<true/> ", n) + "<!-- -->"); }},
    {"sections and texts",
     [](std::size_t n) { return xmlArray("<string>" + repeated("<![CDATA[]]>aaaaaaaaaa", n) + "</string>"); }},
    {"true behind the end", [](std::size_t n) { return plainArray("") + repeated("<true/> ", n); }},
    {"attributes in a plain list", [](std::size_t n) { return plainArray("<true" + repeated(" a=''", n) + "/>"); }},
    {"never closed", [](std::size_t n) { return plainArray(repeated("<array>", n)); }},
    {"closed only", [](std::size_t n) { return plainArray(repeated("</array>", n)); }},
    {"empty arrays and a comment", [](std::size_t n) { return xmlArray(repeated("<array/>", n) + "<!-- -->"); }},
    {"comments in a text", [](std::size_t n) { return xmlArray("<string>" + repeated("a<!---->", n) + "</string>"); }},
    {"sections in a text",
     [](std::size_t n) { return xmlArray("<string>" + repeated("<![CDATA[]]>", n) + "</string>"); }},
    {"instructions", [](std::size_t n) { return xmlArray(repeated("<?a?> ", n)); }},
    {"attributes", [](std::size_t n) { return xmlArray("<true" + repeated(" a=''", n) + "/>"); }},
    {"attributes apart", [](std::size_t n) { return xmlArray("<true" + repeated(" a= \"\"", n) + "/>"); }},
    {"attributes behind a tag's end in quotes",
     [](std::size_t n) { return xmlArray("<true a='>'" + repeated(" a=''", n) + "/>"); }},
    {"a document type",
     [](std::size_t n) { return "<!DOCTYPE plist [" + repeated("<!ENTITY a 'a'>", n) + "]>" + xmlArray(""); }},
    {"empty arrays in UTF-16", [](std::size_t n) { return inUtf16(plainArray(repeated("<array/>", n / 2))); }},
    {"Chinese in UTF-16",
     [](std::size_t n) {
         return inUtf16("<plist><array><string>") + repeated("\x2D\x4E", n) +
                inUtf16("</string></array></plist>").substr(2);
     }},
    {"one text", [](std::size_t n) { return plainArray("<string>" + repeated("a", n) + "</string>"); }},
    {"one text of references",
     [](std::size_t n) { return plainArray("<string>" + repeated("&lt;", n) + "</string>"); }},
    {"one piece of data", [](std::size_t n) { return plainArray("<data>" + repeated("AAAA\n", n) + "</data>"); }},
    {"references without an end",
     [](std::size_t n) { return plainArray("<string>" + repeated("&#0", n) + "</string>"); }},
    {"long names", [](std::size_t n) { return plainArray("<" + repeated("array", n) + "/>"); }},
    {"binary: objects in one place", objectsInOnePlace},
    {"binary: one object often",
     [](std::size_t n) {
         return binaryList({"\xAF\x13" + numbers({n}) + repeated("\1", n), "\x09"});
     }},
    {"binary: a dictionary of one key often",
     [](std::size_t n) {
         return binaryList({"\xDF\x13" + numbers({n / 2}) + repeated("\1", n), "\x51k"});
     }},
    {"binary: a long key often",
     [](std::size_t n) {
         return binaryList({"\xDF\x13" + numbers({n / 4}) + repeated("\1", n / 2),
                            "\x5F\x13" + numbers({n / 2}) + repeated("k", n / 2)});
     }},
    {"binary: a very long key a few times",
     [](std::size_t n) {
         return binaryList({"\xDF\x10\x14" + repeated("\1", 40), "\x5F\x13" + numbers({n / 2}) + repeated("k", n / 2)});
     }},
    {"binary: small arrays", [](std::size_t n) { return binaryListOfMany("\xA1" + word(1), n / 16); }},
    {"binary: small dictionaries", [](std::size_t n) { return binaryListOfMany("\xD1" + word(2) + word(1), n / 24); }},
    {"binary: identifiers", [](std::size_t n) { return binaryListOfMany("\x80\x01", n / 16); }},
    {"binary: arrays of arrays, shared",
     [](std::size_t) {
         const std::string thousand = "\xAF\x11\x03\xE8";
         return binaryList({thousand + repeated("\1", 1000), thousand + repeated("\2", 1000), "\xA0"});
     }},
};

#ifndef VELUMORA_SANITIZED // the sanitizers take memory of their own
/// Bytes of memory that this process has, or had at the most.
std::size_t memoryOfThisProcess(const char* which)
{
    std::ifstream status("/proc/self/status");
    std::string word;
    std::size_t kibibytes = 0;
    while (status >> word && word != which) {
    }
    status >> kibibytes;
    return kibibytes * 1024;
}

/// What reading a list of so many bytes may take beside the list itself.
std::size_t memoryAllowedFor(std::size_t size)
{
    constexpr std::size_t rounding = std::size_t{16} << 20;
    return PropertyList::memoryPerByte * size + PropertyList::memoryOfSmallLists + rounding;
}

/// Reads the list in a process of its own; how many bytes of memory that took beside the list's own, nullopt when the
/// process did not come to an end of the reading. A process that takes far too much gets no more than shows that.
std::optional<std::size_t> memoryOfReading(std::string& bytes)
{
    std::array<int, 2> ends{};
    if (pipe(ends.data()) != 0) {
        return std::nullopt;
    }
    const pid_t child = fork();
    if (child == 0) {
        const rlimit limit{60, 60}; // seconds of the processor; what does not end takes hours
        setrlimit(RLIMIT_CPU, &limit);
        const std::size_t most = memoryOfThisProcess("VmSize:") + 2 * memoryAllowedFor(bytes.size());
        const rlimit space{most, most};
        setrlimit(RLIMIT_AS, &space);
        std::ofstream("/proc/self/clear_refs") << 5; // the most so far is forgotten
        const std::size_t before = memoryOfThisProcess("VmRSS:");
        (void)PropertyList::readTableInPlace(bytes);
        const std::size_t taken = memoryOfThisProcess("VmHWM:") - before;
        const bool isTold = write(ends[1], &taken, sizeof taken) == static_cast<ssize_t>(sizeof taken);
        _exit(isTold ? 0 : 1);
    }
    close(ends[1]);
    std::size_t taken = 0;
    const bool isTold = read(ends[0], &taken, sizeof taken) == static_cast<ssize_t>(sizeof taken);
    close(ends[0]);
    int status = 0;
    waitpid(child, &status, 0);
    return isTold && WIFEXITED(status) && WEXITSTATUS(status) == 0 ? std::optional(taken) : std::nullopt;
}

class HostileListMemory : public testing::TestWithParam<Hostile> {};

TEST_P(HostileListMemory, IsNoMoreThanItsSizeAllows)
{
    for (const std::size_t size : {16 * million, 64 * million}) {
        std::string bytes = GetParam().make(size);
        const std::optional<std::size_t> taken = memoryOfReading(bytes);
        ASSERT_TRUE(taken) << size << " bytes: no end";
        EXPECT_LE(*taken, memoryAllowedFor(bytes.size())) << size << " bytes";
    }
}

/// The letters of the kind of list.
std::string nameOf(const testing::TestParamInfo<Hostile>& kind)
{
    std::string name = kind.param.name;
    std::erase_if(name, [](unsigned char each) { return !std::isalnum(each); });
    return name;
}

INSTANTIATE_TEST_SUITE_P(Kinds, HostileListMemory, testing::ValuesIn(hostile), nameOf);
#endif

TEST(HostileList, IsRefusedBeforeAnythingIsBuilt)
{
    const struct {
        const char* name;
        std::string xml;
    } rows[] = {
        {"too many", plainArray(repeated("<array/>", 20 * million))},
        {"too deep", plainArray(repeated("<array>", 7 * 600) + repeated("</array>", 8 * 600))},
        {"too many, in a form that is not plain", xmlArray(repeated("<array/>", 20 * million))},
        {"too many attributes", xmlArray("<true" + repeated(" a=''", 20 * million) + "/>")},
    };
    for (const auto& row : rows) {
        EXPECT_FALSE(PropertyList::outlineOf(row.xml, million, row.xml.size()).isAllowed) << row.name;
    }
}

/// Of an empty file a small list alone may come: what it holds counts, not how long it is.
TEST(HostileList, CountsWhateverTakesMemoryAgainstTheSizeOfItsFile)
{
    constexpr std::size_t most = PropertyList::memoryOfSmallLists;
    constexpr std::size_t nodes = most / 110; // the parser's, one for a part and one for a text behind it
    const auto manyTimes = [](std::string_view text, std::size_t times) { return repeated(text, times * text.size()); };
    const struct {
        const char* name;
        std::string xml;
    } rows[] = {
        {"a text", plainArray("<string>" + std::string(most, 'a') + "</string>")},
        {"a section", plainArray("<string><![CDATA[" + std::string(most, 'a') + "]]></string>")},
        {"data, twice", plainArray("<data>" + std::string(most / 2, 'A') + "</data>")},
        {"nodes of sections", plainArray(manyTimes("<!---->", nodes))},
        {"nodes of elements", plainArray("<!-- -->" + manyTimes("<a/>", nodes))},
        {"nodes of parts that are parsed as one after all", plainArray(manyTimes("<a/>", nodes) + "<!-- -->")},
    };
    for (const auto& row : rows) {
        EXPECT_FALSE(PropertyList::outlineOf(row.xml, million, 0).isAllowed) << row.name;
        EXPECT_TRUE(PropertyList::outlineOf(row.xml, million, most).isAllowed) << row.name;
    }
    EXPECT_TRUE(PropertyList::outlineOf(plainArray(""), million, 0, most / 2).isAllowed);
    EXPECT_FALSE(PropertyList::outlineOf(plainArray(""), million, 0, most).isAllowed) << "taken already";
}

TEST(HostileList, InUtf16WhatWasMadeOfItCountsToo)
{
    EXPECT_TRUE(PropertyList::readTable(inUtf16(plainArray(repeated("<array/>", 8 * 900'000)))));
    EXPECT_FALSE(PropertyList::readTable(inUtf16(plainArray(repeated("<array/>", 8 * 1'000'000)))));
}

// The writer draws the same line as the reader.
TEST(HostileList, NoListIsWrittenThatWouldNotBeRead)
{
    const Table large(1'000'000, Value(Array()));
    const auto written = [&large](qsizetype count) -> std::optional<std::string> {
        std::string xml;
        const std::error_code error = PropertyList::writeXml(large.mid(0, count), [&xml](std::string_view piece) {
            xml.append(piece);
            return std::error_code();
        });
        EXPECT_TRUE(!error || error == std::errc::file_too_large) << error.message();
        return error ? std::nullopt : std::optional(xml);
    };
    qsizetype most = 0;
    qsizetype tooMany = large.size();
    ASSERT_FALSE(written(tooMany));
    while (tooMany - most > 1) {
        const qsizetype middle = (most + tooMany) / 2;
        (written(middle) ? most : tooMany) = middle;
    }
    std::string xml = written(most).value();
    EXPECT_TRUE(PropertyList::readTable(xml));
    xml.insert(xml.rfind("</array>"), "\t<array/>\n");
    EXPECT_FALSE(PropertyList::readTable(xml));
}

// The honest files that the limits are made for.
TEST(HostileList, ALifetimeOfNotesOfOneLetterInTheShortestFormIsRead)
{
    std::string notes;
    constexpr int days = 36'525 * 4; // beyond what memoryOfSmallLists allows for
    for (int i = 0; i < days; ++i) {
        notes += "<dict><key>NoteDateKey</key><date>2001-01-01T00:00:00Z</date><key>NoteDataKey</key>"
                 "<string>a</string></dict>";
    }
    const std::string body = "<plist version=\"1.0\">\r\n<array>" + notes + "</array></plist>";
    const struct {
        const char* name;
        std::string xml;
    } forms[] = {
        {"as this program writes", plainArray(notes)},
        {"without a document type", xmlArray(notes)},
        {"without a plist", "<array>" + notes + "</array>"},
        {"with a mark and a comment in front",
         "\xEF\xBB\xBF<?xml version='1.0' encoding='utf-8'?>\r\n<!-- mine -->" + body},
        {"in UTF-16", inUtf16(body)},
    };
    for (const auto& form : forms) {
        const std::optional<Table> table = PropertyList::readTable(form.xml);
        ASSERT_TRUE(table) << form.name;
        EXPECT_EQ(table->size(), days) << form.name;
    }
    const std::optional<Table> table = PropertyList::readTable(plainArray(notes));
    EXPECT_TRUE(PropertyList::readTable(PropertyList::writeXml(*table)) == table);
}

TEST(HostileList, ManyKeysTakeNoLongerForBeingUnlike)
{
    std::string entries = "<key>0</key><integer>-1</integer>";
    constexpr int count = 300'000;
    for (int i = 0; i < count; ++i) {
        entries += "<key>" + std::to_string(i % 200'000) + "</key><integer>" + std::to_string(i) + "</integer>";
    }
    const std::optional<Table> table = PropertyList::readTable(plainArray("<dict>" + entries + "</dict>"));
    ASSERT_TRUE(table);
    const Dictionary read = *table->front().dictionary();
    ASSERT_EQ(read.size(), 200'000U);
    EXPECT_EQ(read.begin()->first, "0");
    EXPECT_EQ(read.begin()->second, integer(200'000)); // the last value in the first one's place
    EXPECT_EQ((read.begin() + 1)->second, integer(200'001));
    EXPECT_EQ((read.end() - 1)->second, integer(199'999));

    std::vector<Dictionary::Entry> reversed(read.begin(), read.end());
    std::reverse(reversed.begin(), reversed.end());
    EXPECT_TRUE(Dictionary(reversed) == read);
    reversed.front().second = Value("other");
    EXPECT_FALSE(Dictionary(reversed) == read);
}

} // namespace
