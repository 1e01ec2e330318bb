// SPDX-License-Identifier: MIT
#include "plist/ListMemory.h"
#include "plist/PropertyList.h"
#include "plist/PropertyListParts.h"
#include "plist/XmlText.h"

#include <QByteArray>
#include <QString>

#include <array>
#include <charconv>
#include <cmath>
#include <memory>
#include <utility>

namespace PropertyList {

namespace {

constexpr std::string_view foot = "</plist>\n";
constexpr std::string_view replacementCharacter = "\xEF\xBF\xBD";

/// The XML for the character at `text[at]`, and the number of bytes of the text that it replaces.
std::pair<std::string_view, std::size_t> substitute(std::string_view text, std::size_t at)
{
    switch (text[at]) {
    case '&':
        return {"&amp;", 1};
    case '<':
        return {"&lt;", 1};
    case '>':
        return {"&gt;", 1};
    case '\r':
        return {"&#13;", 1};
    case '\xEF': {
        const std::string_view character = text.substr(at, 3);
        const bool excluded = character == "\xEF\xBF\xBE" || character == "\xEF\xBF\xBF";
        return {excluded ? replacementCharacter : character, character.size()};
    }
    default:
        return {replacementCharacter, 1};
    }
}

/// Gathers the output into pieces, large enough for few system calls and small enough to stay in the processor's cache.
/// After the sink fails, further output is dropped.
class Pieces {
public:
    explicit Pieces(const Sink& sink) : m_sink(sink) {}

    void append(std::string_view bytes)
    {
        while (bytes.size() > m_free) {
            const std::string_view fitting = bytes.substr(0, m_free);
            put(fitting);
            bytes.remove_prefix(fitting.size());
            handOver();
        }
        put(bytes);
    }

    /// Hands over the rest.
    std::error_code finish()
    {
        handOver();
        return m_error;
    }

    std::size_t written() const { return m_written + size - m_free; }

    bool hasFailed() const { return static_cast<bool>(m_error); }

    void fail(std::errc reason) { m_error = m_error ? m_error : std::make_error_code(reason); }

private:
    static constexpr std::size_t size = std::size_t{256} << 10;

    void put(std::string_view bytes)
    {
        bytes.copy(m_piece.get() + (size - m_free), bytes.size());
        m_free -= bytes.size();
    }

    void handOver()
    {
        const std::size_t count = std::exchange(m_free, size);
        m_written += size - count;
        if (m_written > maximumSize) {
            fail(std::errc::file_too_large); // the reader would not take it
        }
        if (!m_error) {
            m_error = m_sink({m_piece.get(), size - count});
        }
    }

    const Sink& m_sink;
    std::unique_ptr<char[]> m_piece{new char[size]}; // make_unique would fill it
    std::size_t m_free = size;
    std::size_t m_written = 0; // bytes, the sum of all pieces
    std::error_code m_error;
};

class Writer {
public:
    explicit Writer(const Sink& sink) : m_xml(sink) {}

    std::error_code write(const Table& table)
    {
        m_xml.append(xmlHead);
        writeArray(table, 0);
        m_xml.append(foot);
        if (!m_memory.isAllowed(m_xml.written(), ListMemory::Parsing::InParts)) {
            m_xml.fail(std::errc::file_too_large); // the reader would not take it
        }
        return m_xml.finish();
    }

private:
    void writeValue(const Value& value, int depth)
    {
        if (depth >= maximumDepth && (value.array() || value.dictionary())) {
            m_xml.fail(std::errc::invalid_argument); // the reader would not take it
            return;
        }
        switch (value.type()) {
        case Value::Type::BooleanType:
            m_memory.addElement("true", 0);
            writeLine(*value.boolean() ? "<true/>" : "<false/>", depth);
            break;
        case Value::Type::IntegerType:
            writeElement("integer", textFromInteger(*value.integer()), depth);
            break;
        case Value::Type::RealType:
            writeElement("real", textFromReal(*value.real()), depth);
            break;
        case Value::Type::DateType:
            writeElement("date", textFromDate(*value.date()), depth);
            break;
        case Value::Type::DataType:
            writeElement("data", base64(*value.data()), depth);
            break;
        case Value::Type::TextType:
            writeElement("string", *value.text(), depth);
            break;
        case Value::Type::ArrayType:
            writeArray(*value.array(), depth);
            break;
        case Value::Type::DictionaryType:
            writeDictionary(*value.dictionary(), depth);
            break;
        }
    }

    void writeArray(const Array& array, int depth)
    {
        m_memory.addElement("array", 0);
        if (array.empty()) {
            writeLine("<array/>", depth);
            return;
        }
        writeLine("<array>", depth);
        for (const Value& value : array) {
            if (m_xml.hasFailed()) {
                return;
            }
            writeValue(value, depth + 1);
            if (depth == 0) {
                m_memory.endPart();
            }
        }
        writeLine("</array>", depth);
    }

    void writeDictionary(const DictionaryView& dictionary, int depth)
    {
        m_memory.addElement("dict", 0);
        if (dictionary.empty()) {
            writeLine("<dict/>", depth);
            return;
        }
        writeLine("<dict>", depth);
        for (const auto& [key, value] : dictionary) {
            writeElement("key", key, depth + 1);
            writeValue(value, depth + 1);
        }
        writeLine("</dict>", depth);
    }

    void writeLine(std::string_view markup, int depth)
    {
        indent(depth);
        m_xml.append(markup);
        m_xml.append("\n");
    }

    void writeElement(std::string_view name, std::string_view text, int depth)
    {
        indent(depth);
        m_xml.append("<");
        m_xml.append(name);
        m_xml.append(">");
        const std::size_t begin = m_xml.written();
        writeText(text);
        m_memory.addElement(name, m_xml.written() - begin);
        m_xml.append("</");
        m_xml.append(name);
        m_xml.append(">\n");
    }

    void indent(int depth)
    {
        for (int i = 0; i < depth; ++i) {
            m_xml.append("\t");
        }
    }

    void writeText(std::string_view text)
    {
        if (!isUtf8(text)) {
            const QByteArray repaired = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())).toUtf8();
            writeText({repaired.constData(), static_cast<std::size_t>(repaired.size())});
            return;
        }
        for (;;) {
            const std::size_t plain = findCare(text);
            m_xml.append(text.substr(0, plain));
            if (plain == text.size()) {
                return;
            }
            const auto [markup, length] = substitute(text, plain);
            m_xml.append(markup);
            text.remove_prefix(plain + length);
        }
    }

    static std::string textFromInteger(Integer integer)
    {
        std::string text = integer.negative ? "-" : "";
        return text.append(std::to_string(integer.magnitude));
    }

    /// The shortest digits that read back as the same number.
    static std::string textFromReal(double real)
    {
        if (std::isnan(real)) {
            return "nan"; // to_chars may add a sign, which the form does not allow
        }
        std::array<char, 32> digits{};
        const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), real);
        return {digits.data(), result.ptr};
    }

    static std::string base64(const std::vector<std::byte>& data)
    {
        return QByteArray::fromRawData(reinterpret_cast<const char*>(data.data()), static_cast<qsizetype>(data.size()))
            .toBase64()
            .toStdString();
    }

    Pieces m_xml;
    ListMemory m_memory;
};

} // namespace

std::error_code writeXml(const Table& table, const Sink& sink)
{
    return Writer(sink).write(table);
}

} // namespace PropertyList
