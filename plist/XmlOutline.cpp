// SPDX-License-Identifier: MIT
#include "plist/XmlOutline.h"

#include <algorithm>

namespace PropertyList {

namespace {

constexpr std::string_view rootTag = XmlParts::rootTag;
constexpr std::string_view rootEnd = "</array>";
constexpr std::string_view plistTag = "<plist";
constexpr std::string_view plistEnd = "</plist>";

std::string_view withoutBlanks(std::string_view text)
{
    text.remove_prefix(std::min(text.find_first_not_of(xmlBlanks), text.size()));
    return text;
}

/// Whether the XML declaration of `text`, if it has one, allows the rest to be UTF-8.
bool declaresUtf8(std::string_view text)
{
    const std::string_view declaration = text.substr(0, text.find("?>"));
    const std::size_t name = declaration.find("encoding");
    return !text.starts_with("<?xml") || name == std::string_view::npos ||
           declaration.find("UTF-8", name) != std::string_view::npos ||
           declaration.find("utf-8", name) != std::string_view::npos;
}

struct Head {
    std::size_t root = 0; ///< position of the root's tag
    bool isInPlist = false;
};

/// What precedes the array that is the root; nullopt when it is not in the plain form. Whether it is well formed is
/// left to the parser.
std::optional<Head> headOf(std::string_view xml)
{
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    constexpr std::size_t largestHead = std::size_t{64} << 10;
    std::string_view rest = xml.substr(0, largestHead);
    if (rest.starts_with(byteOrderMark)) {
        rest.remove_prefix(byteOrderMark.size());
    }
    if (!declaresUtf8(rest)) {
        return std::nullopt;
    }
    const char* const begin = xml.data();
    Head head;
    for (rest = withoutBlanks(rest); !rest.starts_with(rootTag); rest = withoutBlanks(rest)) {
        const bool isPlist = rest.starts_with(plistTag);
        const std::string_view ending = rest.starts_with("<!--") ? "-->" : rest.starts_with("<?") ? "?>" : ">";
        const std::size_t end = rest.find(ending);
        const bool isKnown = isPlist || rest.starts_with("<?") || rest.starts_with("<!");
        if (head.isInPlist || !isKnown || end == std::string_view::npos) {
            return std::nullopt;
        }
        head.isInPlist = isPlist;
        rest.remove_prefix(end + ending.size());
    }
    head.root = static_cast<std::size_t>(rest.data() - begin);
    return head;
}

/// Goes from tag to tag.
class Scan {
public:
    Scan(std::string_view xml, std::size_t partSize, std::size_t fileSize, std::size_t taken)
        : m_xml(xml), m_partSize(partSize), m_fileSize(fileSize), m_memory(taken)
    {
        const std::optional<Head> head = headOf(xml);
        m_isPlain = head && xml.find('\0') == std::string_view::npos;
        m_parts.isInPlist = head && head->isInPlist;
        m_root = head ? head->root : 0;
        m_parts.begin = m_root + rootTag.size();
        m_partBegin = m_parts.begin;
    }

    XmlOutline outline()
    {
        std::size_t tag = m_xml.find('<', m_root);
        while (tag < m_xml.size() && !m_isAtEnd) {
            if (!isAllowed() || (m_isPlain && m_depth > maximumDepth)) {
                return {};
            }
            tag = takeTag(tag);
        }
        m_isPlain = m_isPlain && m_isAtEnd;
        if (!m_isPlain) {
            countAttributes();
        }
        XmlOutline result;
        result.isAllowed = isAllowed();
        if (m_isPlain) {
            result.parts = std::move(m_parts);
        }
        return result;
    }

private:
    bool isAllowed() const
    {
        return m_memory.isAllowed(m_fileSize, m_isPlain ? ListMemory::Parsing::InParts : ListMemory::Parsing::Whole);
    }

    /// Evaluates the tag at `tag` and returns the position of the next one.
    std::size_t takeTag(std::size_t tag)
    {
        const std::size_t next = std::min(m_xml.find('<', tag + 1), m_xml.size());
        const char kind = tag + 1 < next ? m_xml[tag + 1] : '\0';
        if (kind == '/') {
            takeEndTag(tag, next);
        } else if (kind == '!' || kind == '?') {
            m_isPlain = false;
            m_memory.addSection(next - tag);
        } else {
            takeStartTag(tag, next);
        }
        return next;
    }

    void takeStartTag(std::size_t tag, std::size_t next)
    {
        std::size_t nameEnd = tag + 1;
        while (nameEnd < next && !isNameEnd(m_xml[nameEnd])) {
            ++nameEnd;
        }
        const std::string_view rest = m_xml.substr(nameEnd, next - nameEnd);
        const bool closesItself = rest.starts_with("/>");
        m_isPlain = m_isPlain && (closesItself || rest.starts_with('>'));
        const std::size_t end = std::min(nameEnd + (closesItself ? 2 : 1), next);
        m_memory.addElement(m_xml.substr(tag + 1, nameEnd - tag - 1), next - end);
        if (!m_isPlain || tag < m_parts.begin) {
            return;
        }
        if (!closesItself) {
            ++m_depth;
        } else if (m_depth == 0) {
            endElement(end);
        }
    }

    void takeEndTag(std::size_t tag, std::size_t next)
    {
        if (!m_isPlain) {
            return;
        }
        const std::size_t end = m_xml.substr(tag, next - tag).find('>');
        if (end == std::string_view::npos) {
            m_isPlain = false;
        } else if (--m_depth == 0) {
            endElement(tag + end + 1);
        } else if (m_depth < 0) {
            endRoot(tag);
        }
    }

    static bool isNameEnd(char c)
    {
        return c == '>' || c == '/' || c == '<' || xmlBlanks.find(c) != std::string_view::npos;
    }

    /// Notes that an element of the root ends at `end`.
    void endElement(std::size_t end)
    {
        ++m_parts.elements;
        m_memory.endPart(); // small elements are joined, but all together have few nodes
        if (end - m_partBegin >= m_partSize) {
            m_parts.ends.push_back(end);
            m_partBegin = end;
        }
    }

    /// Notes that the root's end tag is at `tag`; only the end of the list may follow.
    void endRoot(std::size_t tag)
    {
        m_parts.ends.push_back(tag);
        std::string_view rest = m_xml.substr(tag);
        m_isPlain = rest.starts_with(rootEnd);
        if (m_isPlain) {
            rest = withoutBlanks(rest.substr(rootEnd.size()));
        }
        if (m_isPlain && m_parts.isInPlist) {
            m_isPlain = rest.starts_with(plistEnd);
            rest = m_isPlain ? withoutBlanks(rest.substr(plistEnd.size())) : rest;
        }
        m_isPlain = m_isPlain && rest.empty();
        m_isAtEnd = m_isPlain;
    }

    /// Every attribute has a '=' and a quotation mark, perhaps with blanks between. Those inside texts are counted too.
    void countAttributes()
    {
        for (std::size_t at = m_xml.find('='); at != std::string_view::npos; at = m_xml.find('=', at + 1)) {
            const char next = at + 1 < m_xml.size() ? m_xml[at + 1] : '\0';
            if (next == '"' || next == '\'' || xmlBlanks.find(next) != std::string_view::npos) {
                m_memory.addAttribute();
            }
        }
    }

    std::string_view m_xml;
    std::size_t m_partSize;
    std::size_t m_fileSize;
    std::size_t m_root = 0; ///< position of its tag, if the form is plain
    std::size_t m_partBegin = 0;
    int m_depth = 0;        ///< of open elements within the root
    bool m_isPlain = false; ///< so far
    bool m_isAtEnd = false;
    XmlParts m_parts;
    ListMemory m_memory;
};

} // namespace

XmlOutline outlineOf(std::string_view xml, std::size_t partSize, std::size_t fileSize, std::size_t taken)
{
    return Scan(xml, partSize, fileSize, taken).outline();
}

} // namespace PropertyList
