// SPDX-License-Identifier: MIT
#include "store/XmlOutline.h"

#include "store/PropertyListParts.h"

#include <algorithm>

namespace PropertyList {

namespace {

constexpr std::string_view rootTag = "<array>";
constexpr std::string_view rootEnd = "</array>";
constexpr std::string_view plistEnd = "</plist>";
constexpr std::string_view blanks = " \t\r\n";

std::string_view withoutBlanks(std::string_view text)
{
    text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
    return text;
}

/// Goes from tag to tag.
class Scan {
public:
    Scan(std::string_view xml, std::size_t partSize) : m_xml(xml), m_partSize(partSize)
    {
        m_isPlain = xml.starts_with(xmlHead) && xml.substr(xmlHead.size()).starts_with(rootTag) &&
                    xml.find('\0') == std::string_view::npos;
        m_parts.begin = xmlHead.size() + rootTag.size();
        m_partBegin = m_parts.begin;
    }

    XmlOutline outline()
    {
        std::size_t tag = m_isPlain ? xmlHead.size() : m_xml.find('<');
        while (tag < m_xml.size() && !m_isAtEnd) {
            if (!m_memory.isAllowed(m_xml.size()) || (m_isPlain && m_depth > maximumDepth)) {
                return {};
            }
            tag = takeTag(tag);
        }
        m_isPlain = m_isPlain && m_isAtEnd;
        if (!m_isPlain) {
            countAttributes();
        }
        XmlOutline result;
        result.isAllowed = m_memory.isAllowed(m_xml.size());
        if (m_isPlain) {
            result.parts = std::move(m_parts);
        }
        return result;
    }

private:
    /// Takes in the tag at `tag` and gives the place of the next one.
    std::size_t takeTag(std::size_t tag)
    {
        const char kind = tag + 1 < m_xml.size() ? m_xml[tag + 1] : '\0';
        if (kind == '/') {
            return takeEndTag(tag);
        }
        if (kind == '!' || kind == '?') {
            m_isPlain = false;
            m_memory.addNode();
            return m_xml.find('<', tag + 1);
        }
        std::size_t nameEnd = tag + 1;
        while (nameEnd < m_xml.size() && !isNameEnd(m_xml[nameEnd])) {
            ++nameEnd;
        }
        const bool closesItself = m_xml.substr(nameEnd).starts_with("/>");
        const bool isBare = closesItself || m_xml.substr(nameEnd).starts_with('>');
        m_isPlain = m_isPlain && isBare;
        const std::size_t end = nameEnd + (closesItself ? 2 : 1);
        const std::size_t next = std::min(m_xml.find('<', end), m_xml.size());
        m_memory.addElement(m_xml.substr(tag + 1, nameEnd - tag - 1), next - std::min(end, next));
        if (tag >= m_parts.begin) {
            m_depth += closesItself ? 0 : 1;
            if (closesItself && m_depth == 0) {
                endElement(end);
            }
        }
        return next;
    }

    std::size_t takeEndTag(std::size_t tag)
    {
        const std::size_t end = m_xml.find('>', tag);
        if (m_isPlain && --m_depth == 0) {
            endElement(end == std::string_view::npos ? m_xml.size() : end + 1);
        } else if (m_isPlain && m_depth < 0) {
            endRoot(tag);
        }
        return m_xml.find('<', tag + 1);
    }

    static bool isNameEnd(char c)
    {
        return c == '>' || c == '/' || c == '<' || blanks.find(c) != std::string_view::npos;
    }

    /// An element of the root ends at `end`.
    void endElement(std::size_t end)
    {
        ++m_parts.elements;
        m_memory.endPart(); // many of them together have few nodes
        if (end - m_partBegin >= m_partSize) {
            m_parts.ends.push_back(end);
            m_partBegin = end;
        }
    }

    /// The root's end tag is at `tag`; nothing but the end of the list may follow.
    void endRoot(std::size_t tag)
    {
        m_parts.ends.push_back(tag);
        std::string_view rest = m_xml.substr(tag);
        m_isPlain = rest.starts_with(rootEnd);
        if (m_isPlain) {
            rest = withoutBlanks(rest.substr(rootEnd.size()));
            m_isPlain = rest.starts_with(plistEnd) && withoutBlanks(rest.substr(plistEnd.size())).empty();
        }
        m_isAtEnd = m_isPlain;
    }

    /// Each has a '=' with a quotation mark behind it, perhaps with blanks between. Those in texts count, too.
    void countAttributes()
    {
        for (std::size_t at = m_xml.find('='); at != std::string_view::npos; at = m_xml.find('=', at + 1)) {
            const char next = at + 1 < m_xml.size() ? m_xml[at + 1] : '\0';
            if (next == '"' || next == '\'' || blanks.find(next) != std::string_view::npos) {
                m_memory.addNode();
            }
        }
    }

    std::string_view m_xml;
    std::size_t m_partSize;
    std::size_t m_partBegin = 0;
    int m_depth = 0; ///< elements of the root that are open, one inside the other
    bool m_isPlain = false;
    bool m_isAtEnd = false;
    XmlParts m_parts;
    ListMemory m_memory;
};

} // namespace

XmlOutline outlineOf(std::string_view xml, std::size_t partSize)
{
    return Scan(xml, partSize).outline();
}

} // namespace PropertyList
