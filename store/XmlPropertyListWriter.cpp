// SPDX-License-Identifier: MIT
#include "store/PropertyList.h"
#include "store/PropertyListParts.h"

#include <QByteArray>
#include <QString>

#include <array>
#include <charconv>
#include <cmath>

namespace PropertyList {

namespace {

constexpr std::string_view head = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                  "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
                                  "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
                                  "<plist version=\"1.0\">\n";
constexpr std::string_view foot = "</plist>\n";
constexpr std::string_view replacementCharacter = "\xEF\xBF\xBD";

/// Whether a byte of a text may have to be written as something else.
constexpr std::array<bool, 256> needsCare = [] {
    std::array<bool, 256> table{};
    for (std::size_t control = 0; control < 0x20; ++control) {
        table[control] = control != '\t' && control != '\n';
    }
    table['&'] = table['<'] = table['>'] = true;
    table[0xEF] = true; // U+FFFE and U+FFFF, which XML excludes, begin with it
    return table;
}();

/// What stands in XML for the character that begins at `text[at]`, and how many bytes of the text it stands for.
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

class Writer {
public:
    std::string write(const Table& table)
    {
        m_xml += head;
        writeArray(table, 0);
        m_xml += foot;
        return std::move(m_xml);
    }

private:
    void writeValue(const Value& value, int depth)
    {
        switch (value.type()) {
        case Value::Type::BooleanType:
            writeLine(*value.boolean() ? "<true/>" : "<false/>", depth);
            break;
        case Value::Type::IntegerType:
            writeElement("integer", (value.integer()->negative ? "-" : "") + std::to_string(value.integer()->magnitude),
                         depth);
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
        if (array.empty()) {
            writeLine("<array/>", depth);
            return;
        }
        writeLine("<array>", depth);
        for (const Value& value : array) {
            writeValue(value, depth + 1);
        }
        writeLine("</array>", depth);
    }

    void writeDictionary(const Dictionary& dictionary, int depth)
    {
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
        m_xml.append(static_cast<std::size_t>(depth), '\t').append(markup).push_back('\n');
    }

    void writeElement(std::string_view name, std::string_view text, int depth)
    {
        m_xml.append(static_cast<std::size_t>(depth), '\t').append(1, '<').append(name).push_back('>');
        writeText(text);
        m_xml.append("</").append(name).append(">\n");
    }

    void writeText(std::string_view text)
    {
        if (!isUtf8(text)) {
            const QByteArray repaired = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())).toUtf8();
            writeText({repaired.constData(), static_cast<std::size_t>(repaired.size())});
            return;
        }
        std::size_t written = 0;
        for (std::size_t at = 0; at < text.size();) {
            if (!needsCare[static_cast<unsigned char>(text[at])]) {
                ++at;
                continue;
            }
            const auto [markup, length] = substitute(text, at);
            m_xml.append(text, written, at - written).append(markup);
            at += length;
            written = at;
        }
        m_xml.append(text, written);
    }

    /// The shortest digits that read back as the same number.
    static std::string textFromReal(double real)
    {
        if (std::isnan(real)) {
            return "nan"; // without the sign that the form has no place for
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

    std::string m_xml;
};

} // namespace

std::string writeXml(const Table& table)
{
    return Writer().write(table);
}

} // namespace PropertyList
