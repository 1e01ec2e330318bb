// SPDX-License-Identifier: MIT
// A large list is read in parts, and is what it is as a whole.
#include "plist/PropertyListParts.h"
#include "plist/XmlOutline.h"
#include "plist/property_list_samples.h"

#include <gtest/gtest.h>

#include <random>

namespace {

using namespace std::string_literals;

PropertyList::XmlOutline outlineOf(const std::string& xml, std::size_t partSize)
{
    return PropertyList::outlineOf(xml, partSize, xml.size());
}

TEST(XmlParts, EachEndsBehindAWholeElementOfTheRoot)
{
    const std::string elements[] = {"<true/>",
                                    "\n\t<dict>\n<key>a</key><array><string>&lt;array></string></array></dict>",
                                    "<array><array/></array>", "<string>></string>"};
    std::string inside;
    for (const std::string& element : elements) {
        inside += element;
    }
    const std::string xml = plainArray(inside);
    const PropertyList::XmlOutline outline = outlineOf(xml, 1);
    ASSERT_TRUE(outline.isAllowed && outline.parts);
    EXPECT_EQ(outline.parts->elements, std::size(elements));
    std::size_t begin = outline.parts->begin;
    ASSERT_EQ(outline.parts->ends.size(), std::size(elements) + 1);
    for (std::size_t i = 0; i < std::size(elements); ++i) {
        EXPECT_EQ(xml.substr(begin, outline.parts->ends[i] - begin), elements[i]);
        begin = outline.parts->ends[i];
    }
    EXPECT_EQ(outline.parts->ends.back(), begin);
    const PropertyList::XmlOutline whole = outlineOf(xml, xml.size());
    ASSERT_TRUE(whole.parts);
    EXPECT_EQ(whole.parts->ends.size(), 1U);
}

TEST(XmlParts, AreOnlyOfThePlainForm)
{
    EXPECT_TRUE(outlineOf(plainArray(""), 1).parts);
    EXPECT_TRUE(outlineOf(plainArray(" <true/> ") + " \n", 1).parts);
    EXPECT_TRUE(outlineOf(xmlArray("<true/>"), 1).parts);
    EXPECT_TRUE(outlineOf("\n" + plainArray(""), 1).parts);
    EXPECT_TRUE(outlineOf("<array></array> ", 1).parts);
    for (const std::string& xml :
         {"<dict></dict>"s, "<plist><dict></dict></plist>"s, "<array></array></plist>"s, "<plist><array></array>"s,
          "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><array></array>"s, plainArray("<true a=\"1\"/>"),
          plainArray("<true a=\"1\"></true>"), plainArray("<true />"), plainArray("<!-- -->"),
          plainArray("<![CDATA[ ]]>"), plainArray("<?a?>"), plainArray("<true/>") + "<!-- -->", plainArray("</array>"),
          plainArray("<array>"), plainArray("<string>\0</string>"s), plainArray("<true/>") + "x"}) {
        EXPECT_FALSE(outlineOf(xml, 1).parts) << xml;
    }
}

// Cutting a list up is a matter of speed alone: with a comment behind its end it is read in one piece.
TEST(XmlParts, AreReadAsTheWholeIs)
{
    const std::string_view pieces[] = {"<array>",
                                       "</array>",
                                       "<array/>",
                                       "<dict>",
                                       "</dict>",
                                       "<key>",
                                       "</key>",
                                       "k",
                                       "<string>",
                                       "</string>",
                                       "<string/>",
                                       "<true/>",
                                       " ",
                                       "\n",
                                       "text",
                                       "&amp;",
                                       "&",
                                       "<true>",
                                       "</true>",
                                       "<",
                                       ">",
                                       "/>",
                                       "<date>2001-01-01T00:00:00Z</date>",
                                       "\xEF\xBB\xBF",
                                       "<dict><key>k</key><true/></dict>",
                                       "<string>long enough for the heap</string>",
                                       "</array></plist>"};
    std::minstd_rand random(20261122);
    int read = 0;
    for (int i = 0; i < 200'000; ++i) {
        std::string inside;
        for (auto count = random() % 12; count > 0; --count) {
            inside += pieces[random() % std::size(pieces)];
        }
        const std::string_view heads[] = {"<plist><array>",        "<plist ><array>",
                                          "<plist a><array>",      "<plist/><array>",
                                          "<plistx><array>",       "<!DOCTYPE plist><plist><array>",
                                          "<?a?><plist><array>",   "<!x><plist><array>",
                                          "<?xml?><plist><array>", "<plist>\n<!-- > --><array>"};
        const bool isUsual = random() % 4 > 0;
        const std::string xml = isUsual ? plainArray(inside)
                                        : std::string(heads[random() % std::size(heads)]) + inside + "</array></plist>";
        std::string bytes = xml;
        const std::optional<Value> inParts = PropertyList::readAnyXml(bytes, 1);
        bytes = xml + "<!-- -->";
        ASSERT_TRUE(inParts == PropertyList::readAnyXml(bytes)) << xml;
        read += inParts && inParts->array() && !inParts->array()->empty() ? 1 : 0;
    }
    EXPECT_GT(read, 1000);
}

TEST(XmlParts, OfALargeListAreAllRead)
{
    Table table;
    for (int i = 0; i < 40'000; ++i) {
        table.append(Value(Dictionary{{"NoteDateKey", dateAt(86'400.0 * i)},
                                      {"NoteDataKey", Value("Note " + std::to_string(i) + std::string(i % 90, 'x'))}}));
    }
    const std::string xml = PropertyList::writeXml(table);
    ASSERT_GT(outlineOf(xml, std::size_t{256} << 10).parts.value().ends.size(), 10U);
    EXPECT_TRUE(PropertyList::readTable(xml) == table);
    std::string broken = xml;
    broken[broken.rfind("</string>") + 3] = 'x';
    EXPECT_FALSE(PropertyList::readTable(broken));
}

} // namespace
