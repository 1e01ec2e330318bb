// SPDX-License-Identifier: MIT
#include "plist/PropertyList.h"
#include "plist/PropertyListParts.h"
#include "plist/XmlText.h"

#include <algorithm>
#include <array>
#include <utility>

namespace PropertyList {

namespace {

/// Bytes of text that records share. A text that was replaced is freed with the last record that shares its memory, so
/// this is also what a change may leave behind.
constexpr std::size_t sharedSize = std::size_t{64} << 10;

constexpr std::string_view arrayBegin = "<array>\n";
constexpr std::string_view recordBegin = "\t<dict>\n\t\t<key>";
constexpr std::string_view dateBegin = "</key>\n\t\t<date>";
constexpr std::string_view textBegin = "</key>\n\t\t<string>";
constexpr std::string_view dateThenKey = "</date>\n\t\t<key>";
constexpr std::string_view textThenKey = "</string>\n\t\t<key>";
constexpr std::string_view dateThenEnd = "</date>\n\t</dict>\n";
constexpr std::string_view textThenEnd = "</string>\n\t</dict>\n";
constexpr std::string_view arrayEnd = "</array>\n</plist>\n";

struct Escape {
    std::string_view markup;
    char character;
};

constexpr std::array<Escape, 4> escapes{{{"&amp;", '&'}, {"&lt;", '<'}, {"&gt;", '>'}, {"&#13;", '\r'}}};

class RecordReader {
public:
    explicit RecordReader(std::string_view xml) : m_xml(xml), m_rest(xml) {}

    std::optional<Array> read()
    {
        if (!skip(xmlHead) || !skip(arrayBegin)) {
            return std::nullopt;
        }
        Array records;
        while (skip(recordBegin)) {
            const std::optional<bool> isDateFirst = readRecord();
            if (!isDateFirst || std::cmp_equal(records.size(), maximumElements / elementsOfRecord)) {
                return std::nullopt;
            }
            const auto last = static_cast<std::uint32_t>(m_texts->records.size() - 1);
            records.append(Value::ofRecord(SharedDatedTexts(m_texts.get()), last, *isDateFirst));
        }
        if (records.isEmpty() || m_rest != arrayEnd || !isUtf8(m_xml)) {
            return std::nullopt;
        }
        endTexts();
        records.squeeze();
        return records;
    }

private:
    static constexpr std::size_t elementsOfRecord = 5; // the dictionary, two keys and their values

    bool skip(std::string_view expected)
    {
        if (!m_rest.starts_with(expected)) {
            return false;
        }
        m_rest.remove_prefix(expected.size());
        return true;
    }

    /// What stands before the next tag, at which the reading goes on.
    std::string_view untilTag()
    {
        const std::string_view found = m_rest.substr(0, m_rest.find('<'));
        m_rest.remove_prefix(found.size());
        return found;
    }

    /// Whether the record's date precedes its text; nullopt when it is no record of both.
    std::optional<bool> readRecord()
    {
        const std::string_view firstKey = untilTag();
        const bool isDateFirst = skip(dateBegin);
        const bool isFirstRead =
            isDateFirst ? readDate() && skip(dateThenKey) : skip(textBegin) && readText() && skip(textThenKey);
        if (!isFirstRead) {
            return std::nullopt;
        }
        const std::string_view secondKey = untilTag();
        const bool isSecondRead = isDateFirst ? skip(textBegin) && readText() && skip(textThenEnd)
                                              : skip(dateBegin) && readDate() && skip(dateThenEnd);
        if (!isSecondRead || !takeKeys(isDateFirst ? firstKey : secondKey, isDateFirst ? secondKey : firstKey)) {
            return std::nullopt;
        }
        const std::size_t size = m_texts->texts.size() - m_textBegin;
        m_texts->records.push_back({m_date, static_cast<std::uint32_t>(m_textBegin), static_cast<std::uint32_t>(size)});
        return isDateFirst;
    }

    bool readDate()
    {
        const std::optional<Date> date = dateFromText(untilTag());
        m_date = date.value_or(Date());
        return date.has_value();
    }

    bool readText()
    {
        std::string_view raw = untilTag();
        beginText(raw.size());
        std::string& texts = m_texts->texts;
        for (std::size_t plain = findCare(raw); plain != raw.size(); plain = findCare(raw)) {
            texts.append(raw.substr(0, plain));
            raw.remove_prefix(plain);
            const std::size_t taken = takeSpecial(raw);
            if (taken == 0) {
                return false;
            }
            raw.remove_prefix(taken);
        }
        texts.append(raw);
        return true;
    }

    /// Appends the character at the beginning of `raw`; returns how many of its bytes stand for it, 0 when the general
    /// reader has to judge it.
    std::size_t takeSpecial(std::string_view raw)
    {
        if (raw.starts_with('\xEF') && !raw.starts_with("\xEF\xBF\xBE") && !raw.starts_with("\xEF\xBF\xBF")) {
            m_texts->texts.push_back('\xEF');
            return 1;
        }
        const auto escape = std::ranges::find_if(escapes, [raw](const Escape& e) { return raw.starts_with(e.markup); });
        if (escape == escapes.end()) {
            return 0;
        }
        m_texts->texts.push_back(escape->character);
        return escape->markup.size();
    }

    /// Makes room for a text of at most `size` bytes, without moving those that are there.
    void beginText(std::size_t size)
    {
        if (!m_texts || m_texts->texts.size() + size > m_texts->texts.capacity()) {
            endTexts();
            m_texts = new DatedTexts;
            m_texts->texts.reserve(std::max(std::min(sharedSize, m_rest.size()), size));
        }
        m_textBegin = m_texts->texts.size();
    }

    void endTexts()
    {
        if (m_texts) {
            m_texts->dateKey = m_dateKey;
            m_texts->textKey = m_textKey;
            m_texts->records.shrink_to_fit();
        }
    }

    /// Whether the keys are those of the other records.
    bool takeKeys(std::string_view dateKey, std::string_view textKey)
    {
        if (m_dateKey.empty()) {
            m_dateKey = dateKey;
            m_textKey = textKey;
            return dateKey != textKey && !dateKey.empty() && findCare(dateKey) == dateKey.size() &&
                   findCare(textKey) == textKey.size();
        }
        return dateKey == m_dateKey && textKey == m_textKey;
    }

    const std::string_view m_xml;
    std::string_view m_rest;
    std::string_view m_dateKey;
    std::string_view m_textKey;
    Date m_date;
    std::size_t m_textBegin = 0;
    QExplicitlySharedDataPointer<DatedTexts> m_texts; ///< those of the newest records
};

} // namespace

std::optional<Array> readRecords(std::string_view xml)
{
    return RecordReader(xml).read();
}

} // namespace PropertyList
