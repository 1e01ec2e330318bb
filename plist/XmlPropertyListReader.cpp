// SPDX-License-Identifier: MIT
#include "plist/PropertyList.h"
#include "plist/PropertyListParts.h"
#include "plist/XmlOutline.h"

#include <QByteArray>
#include <pugixml.hpp>

#include <algorithm>
#include <charconv>
#include <cstring>
#include <new>
#include <span>

namespace PropertyList {

namespace {

/// Blank texts are kept, since a note of blanks is a note, and line ends are left alone, since a carriage return is a
/// character of the note. Comments, processing instructions and the document type are skipped; entities that the
/// document type defines are never expanded.
constexpr unsigned parseOptions = pugi::parse_escapes | pugi::parse_cdata | pugi::parse_embed_pcdata;

bool isBlank(std::string_view text)
{
    return text.find_first_not_of(xmlBlanks) == std::string_view::npos;
}

std::string_view trimmed(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(xmlBlanks);
    return first == std::string_view::npos ? std::string_view()
                                           : text.substr(first, text.find_last_not_of(xmlBlanks) - first + 1);
}

std::optional<Value> valueOf(pugi::xml_node element, int depth);

/// All texts and CDATA sections directly inside `element`, joined; nullopt when there is an element among them or they
/// are not UTF-8, as with a reference to half a surrogate pair.
std::optional<std::string> textOf(pugi::xml_node element)
{
    std::string text = element.value(); // the first text; further ones are nodes
    if (element.first_child()) {
        std::size_t size = text.size();
        for (const pugi::xml_node child : element.children()) {
            size += std::strlen(child.value());
        }
        text.reserve(size);
    }
    for (pugi::xml_node child = element.first_child(); child; child = child.next_sibling()) {
        if (child.type() == pugi::node_element) {
            return std::nullopt;
        }
        text += child.value();
    }
    return isUtf8(text) ? std::optional(std::move(text)) : std::nullopt;
}

/// The first element among `node` and its later siblings, a null node when there is none; nullopt when a text precedes
/// it, which would be lost.
std::optional<pugi::xml_node> elementFrom(pugi::xml_node node)
{
    for (; node; node = node.next_sibling()) {
        if (node.type() == pugi::node_element) {
            return node;
        }
        if (!isBlank(node.value())) {
            return std::nullopt;
        }
    }
    return node;
}

/// The same for the children of `parent`.
std::optional<pugi::xml_node> firstElementIn(pugi::xml_node parent)
{
    return isBlank(parent.value()) ? elementFrom(parent.first_child()) : std::nullopt;
}

template <typename Plain> std::optional<Value> asValue(std::optional<Plain> plain)
{
    return plain ? std::optional(Value(std::move(*plain))) : std::nullopt;
}

/// An integer of 64 bits: an optional sign and decimal or, after 0x, hexadecimal digits.
std::optional<Integer> integerFrom(std::string_view text)
{
    Integer integer;
    integer.negative = text.starts_with('-');
    if (integer.negative || text.starts_with('+')) {
        text.remove_prefix(1);
    }
    const bool hexadecimal = text.starts_with("0x") || text.starts_with("0X");
    if (hexadecimal) {
        text.remove_prefix(2);
    }
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, integer.magnitude, hexadecimal ? 16 : 10);
    constexpr std::uint64_t lowest = std::uint64_t{1} << 63;
    if (error != std::errc() || stop != end || (integer.negative && integer.magnitude > lowest)) {
        return std::nullopt;
    }
    integer.negative = integer.negative && integer.magnitude != 0;
    return integer;
}

std::optional<double> realFrom(std::string_view text)
{
    if (text.starts_with('+') && !text.starts_with("+-")) {
        text.remove_prefix(1);
    }
    double real = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, real);
    return error == std::errc() && stop == end ? std::optional(real) : std::nullopt;
}

std::optional<std::vector<std::byte>> dataFrom(std::string text)
{
    std::erase_if(text, [](char c) { return xmlBlanks.find(c) != std::string_view::npos; });
    const auto encoded = QByteArray::fromRawData(text.data(), static_cast<qsizetype>(text.size()));
    const auto decoded = QByteArray::fromBase64Encoding(encoded, QByteArray::AbortOnBase64DecodingErrors);
    if (!decoded) {
        return std::nullopt;
    }
    text = std::string(); // it may be large, and is no longer needed
    const QByteArray& data = decoded.decoded;
    const auto bytes = std::as_bytes(std::span(data.constData(), static_cast<std::size_t>(data.size())));
    return std::vector<std::byte>(bytes.begin(), bytes.end());
}

/// The number of elements in `parent`, for reserving exactly that much memory.
std::size_t countElements(pugi::xml_node parent)
{
    return static_cast<std::size_t>(std::ranges::count(parent.children(), pugi::node_element, &pugi::xml_node::type));
}

std::optional<Array> arrayOf(pugi::xml_node element, int depth)
{
    Array array;
    array.reserve(static_cast<qsizetype>(countElements(element)));
    auto child = firstElementIn(element);
    while (child && *child) {
        std::optional<Value> value = valueOf(*child, depth);
        if (!value) {
            return std::nullopt;
        }
        array.append(std::move(*value));
        child = elementFrom(child->next_sibling());
    }
    return child ? std::optional(std::move(array)) : std::nullopt;
}

std::optional<Dictionary> dictionaryOf(pugi::xml_node element, int depth)
{
    std::vector<Dictionary::Entry> entries;
    entries.reserve(countElements(element) / 2);
    auto child = firstElementIn(element);
    while (child && *child) {
        const auto following = elementFrom(child->next_sibling());
        if (child->name() != std::string_view("key") || !following) {
            return std::nullopt;
        }
        std::optional<std::string> key = textOf(*child);
        std::optional<Value> value = valueOf(*following, depth);
        if (!key || !value) {
            return std::nullopt;
        }
        entries.emplace_back(std::move(*key), std::move(*value));
        child = elementFrom(following->next_sibling());
    }
    return child ? std::optional(Dictionary(std::move(entries))) : std::nullopt;
}

/// The value of an element inside `depth` arrays and dictionaries; nullopt also for a null node.
std::optional<Value> valueOf(pugi::xml_node element, int depth)
{
    const std::string_view name = element.name();
    if (name == "dict" || name == "array") {
        if (depth >= maximumDepth) {
            return std::nullopt;
        }
        return name == "dict" ? asValue(dictionaryOf(element, depth + 1)) : asValue(arrayOf(element, depth + 1));
    }
    std::optional<std::string> text = textOf(element);
    if (!text) {
        return std::nullopt;
    }
    if (name == "string") {
        return Value(std::move(*text));
    }
    if (name == "date") {
        return asValue(dateFromText(trimmed(*text)));
    }
    if (name == "integer") {
        return asValue(integerFrom(trimmed(*text)));
    }
    if (name == "real") {
        return asValue(realFrom(trimmed(*text)));
    }
    if (name == "data") {
        return asValue(dataFrom(std::move(*text)));
    }
    if ((name == "true" || name == "false") && isBlank(*text)) {
        return Value(name == "true");
    }
    return std::nullopt;
}

/// Whether a character reference names U+0000, which XML forbids and at which the parser would silently end the text.
bool namesNull(std::string_view xml)
{
    for (std::size_t at = xml.find("&#"); at != std::string_view::npos; at = xml.find("&#", at)) {
        at += 2;
        const std::size_t digits = xml.substr(at).starts_with('x') ? at + 1 : at;
        const std::size_t end = xml.find_first_not_of('0', digits);
        if (end != std::string_view::npos && end > digits && xml[end] == ';') {
            return true;
        }
    }
    return false;
}

/// The byte order of UTF-16 text, told from its byte order mark or from the '<' that every document begins with;
/// nullopt for another encoding.
std::optional<ByteOrder> utf16Order(std::string_view bytes)
{
    using namespace std::string_view_literals;
    if (bytes.starts_with("\xFF\xFE"sv) || bytes.starts_with("<\0"sv)) {
        return ByteOrder::LittleEndian;
    }
    if (bytes.starts_with("\xFE\xFF"sv) || bytes.starts_with("\0<"sv)) {
        return ByteOrder::BigEndian;
    }
    return std::nullopt;
}

/// Whether the parsing succeeded. Lack of memory says nothing about the list, so it is thrown instead.
bool isParsed(const pugi::xml_parse_result& result)
{
    if (result.status == pugi::status_out_of_memory) {
        throw std::bad_alloc();
    }
    return static_cast<bool>(result);
}

/// Appends the values of the elements in one part of the root; false when the part is broken.
bool appendValues(Array& array, std::span<char> part)
{
    using namespace std::string_view_literals;
    if (std::string_view(part.data(), part.size()).starts_with("\xEF\xBB\xBF"sv)) {
        return false; // the parser would drop it as a byte order mark
    }
    // Blanks between elements would be half of all nodes; this makes nodes only of those that are the whole text of an
    // element.
    constexpr unsigned options = parseOptions | pugi::parse_ws_pcdata_single | pugi::parse_fragment;
    pugi::xml_document document;
    if (!isParsed(document.load_buffer_inplace(part.data(), part.size(), options, pugi::encoding_utf8))) {
        return false;
    }
    auto child = elementFrom(document.first_child());
    while (child && *child) {
        std::optional<Value> value = valueOf(*child, 1);
        if (!value) {
            return false;
        }
        array.append(std::move(*value));
        child = elementFrom(child->next_sibling());
    }
    return child.has_value();
}

/// Reads a list in any form: with comments, CDATA sections, attributes or any other root.
std::optional<Value> readWhole(std::span<char> xml, pugi::xml_encoding encoding)
{
    // Blanks beside a comment, CDATA section or instruction may be part of a text.
    constexpr unsigned options = parseOptions | pugi::parse_ws_pcdata;
    pugi::xml_document document;
    if (!isParsed(document.load_buffer_inplace(xml.data(), xml.size(), options, encoding))) {
        return std::nullopt;
    }
    pugi::xml_node root = document.first_child();
    if (root.next_sibling()) {
        return std::nullopt;
    }
    if (root.name() == std::string_view("plist")) {
        const auto list = firstElementIn(root);
        const auto behind = list ? elementFrom(list->next_sibling()) : std::nullopt;
        if (!behind || *behind) {
            return std::nullopt;
        }
        root = *list;
    }
    return valueOf(root, 0);
}

/// Reads a list in the plain form part by part, freeing the nodes of each before the next is parsed.
std::optional<Value> readParts(std::span<char> xml, const XmlParts& parts, pugi::xml_encoding encoding)
{
    std::string frame(xml.data(), parts.begin - XmlParts::rootTag.size());
    frame += parts.isInPlist ? "<array/></plist>" : "<array/>";
    if (!readWhole(frame, encoding)) {
        return std::nullopt;
    }
    Array array;
    array.reserve(static_cast<qsizetype>(parts.elements));
    xml[parts.ends.back()] = ' '; // the parser overwrites the last byte, so it must not be part of a text
    std::size_t begin = parts.begin;
    for (const std::size_t part : parts.ends) {
        const std::size_t end = part == parts.ends.back() ? part + 1 : part;
        if (!appendValues(array, xml.subspan(begin, end - begin))) {
            return std::nullopt;
        }
        begin = end;
    }
    return Value(std::move(array));
}

/// Reads a list in any encoding but UTF-16.
std::optional<Value> readParsed(std::span<char> bytes, pugi::xml_encoding encoding, std::size_t partSize,
                                std::size_t fileSize, std::size_t taken)
{
    const std::string_view xml(bytes.data(), bytes.size());
    const XmlOutline outline = outlineOf(xml, partSize, fileSize, taken);
    if (!outline.isAllowed || namesNull(xml)) {
        return std::nullopt;
    }
    return outline.parts ? readParts(bytes, *outline.parts, encoding) : readWhole(bytes, encoding);
}

} // namespace

std::optional<Value> readAnyXml(std::span<char> bytes, std::size_t partSize)
{
    const std::optional<ByteOrder> order = utf16Order({bytes.data(), bytes.size()});
    if (!order) {
        return readParsed(bytes, pugi::encoding_auto, partSize, bytes.size(), 0);
    }
    // Converted here because the parser silently drops unpaired surrogates.
    ConvertedText converted = utf8FromUtf16({bytes.data(), bytes.size()}, *order);
    return converted.isWhole
               ? readParsed(converted.utf8, pugi::encoding_utf8, partSize, bytes.size(), converted.utf8.size())
               : std::nullopt;
}

std::optional<Value> readXml(std::span<char> bytes)
{
    std::optional<Array> records = readRecords({bytes.data(), bytes.size()});
    return records ? std::optional(Value(std::move(*records))) : readAnyXml(bytes);
}

} // namespace PropertyList
