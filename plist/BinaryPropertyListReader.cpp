// SPDX-License-Identifier: MIT
#include "plist/ListMemory.h"
#include "plist/PropertyList.h"
#include "plist/PropertyListParts.h"

#include <algorithm>
#include <bit>
#include <span>

namespace PropertyList {

namespace {

/// The fixed-size end of the file, which says where everything else is.
struct Trailer {
    static constexpr std::size_t size = 32;

    std::size_t offsetWidth = 0;    ///< bytes of an entry of the offset table
    std::size_t referenceWidth = 0; ///< bytes of a reference from an object to another
    std::uint64_t objects = 0;
    std::uint64_t top = 0;
    std::uint64_t offsetTable = 0;
};

/// An object of the file, once it is read.
struct Object {
    enum class State : std::uint8_t { Unread, BeingRead, Read };

    State state = State::Unread;
    Value value{false};
    int height = 0;             ///< nested arrays and dictionaries, this one included
    std::uint64_t written = 0;  ///< about its bytes in XML, which shares nothing
    std::uint64_t elements = 1; ///< keys and values in XML, this one included
};

constexpr std::size_t markupSize = 32; ///< about the bytes of XML around a value

class Reader {
public:
    explicit Reader(std::string_view bytes) : m_bytes(bytes), m_unclaimed(bytes.size()) {}

    std::optional<Value> read()
    {
        if (!readTrailer() || m_trailer.objects > maximumElements || !take(m_trailer.objects, sizeof(Object))) {
            return std::nullopt;
        }
        m_objects.resize(m_trailer.objects);
        const Object* top = objectAt(m_trailer.top, 0);
        return top ? std::optional(top->value) : std::nullopt;
    }

private:
    struct Head {
        unsigned kind = 0;        ///< the upper half of the first byte
        unsigned extra = 0;       ///< the lower half
        std::size_t position = 0; ///< of the byte after the first
    };

    bool readTrailer();
    const Object* objectAt(std::uint64_t index, int depth);
    std::optional<Object> readObject(std::uint64_t index, int depth);
    std::optional<Object> readPlain(const Head& head);
    std::optional<Object> readArray(std::size_t position, std::size_t count, int depth);
    std::optional<Object> readDictionary(std::size_t position, std::size_t count, int depth);
    std::optional<std::size_t> readCount(Head& head);
    std::optional<Value> readInteger(std::size_t position, std::size_t width);
    std::optional<Value> readReal(std::size_t position, std::size_t width);
    std::optional<Value> readDate(std::size_t position);
    std::optional<Value> readUid(std::size_t position, std::size_t width);
    /// Counts `count` * `size` bytes of memory; false when they exceed the limit.
    bool take(std::uint64_t count, std::uint64_t size)
    {
        m_memory += count * size; // cannot overflow: no count exceeds the size of the file
        return ListMemory::isAllowed(m_memory, m_bytes.size());
    }

    std::optional<std::string_view> claim(std::size_t position, std::size_t count, std::size_t width);

    std::uint64_t numberAt(std::size_t position, std::size_t width) const
    {
        std::uint64_t number = 0;
        for (const char byte : m_bytes.substr(position, width)) {
            number = number << 8 | static_cast<unsigned char>(byte);
        }
        return number;
    }

    std::uint64_t referenceAt(std::size_t position, std::size_t index) const
    {
        return numberAt(position + index * m_trailer.referenceWidth, m_trailer.referenceWidth);
    }

    std::string_view m_bytes;
    std::size_t m_unclaimed;
    std::uint64_t m_memory = 0; ///< bytes taken for values
    Trailer m_trailer;
    std::vector<Object> m_objects;
};

bool Reader::readTrailer()
{
    constexpr std::size_t headerSize = 8;
    if (m_bytes.size() < headerSize + Trailer::size) {
        return false;
    }
    const std::size_t end = m_bytes.size() - Trailer::size;
    m_trailer.offsetWidth = static_cast<std::size_t>(numberAt(end + 6, 1));
    m_trailer.referenceWidth = static_cast<std::size_t>(numberAt(end + 7, 1));
    m_trailer.objects = numberAt(end + 8, 8);
    m_trailer.top = numberAt(end + 16, 8);
    m_trailer.offsetTable = numberAt(end + 24, 8);
    const auto isWidth = [](std::size_t width) { return width >= 1 && width <= 8; };
    return isWidth(m_trailer.offsetWidth) && isWidth(m_trailer.referenceWidth) && m_trailer.offsetTable <= end &&
           m_trailer.objects <= (end - m_trailer.offsetTable) / m_trailer.offsetWidth;
}

/// The `count` items of `width` bytes at `position`; nullopt when they do not all lie in the file. Objects of an honest
/// file do not overlap, so their sizes add up to no more than the file; objects that claim more could make the result
/// grow without bound.
std::optional<std::string_view> Reader::claim(std::size_t position, std::size_t count, std::size_t width)
{
    if (position > m_bytes.size() || count > (m_bytes.size() - position) / width || count * width > m_unclaimed) {
        return std::nullopt;
    }
    m_unclaimed -= count * width;
    return m_bytes.substr(position, count * width);
}

/// The object; null when it is broken, nested too deeply or nested in itself. It is read once however often it is
/// referred to, but checked against the limits at each reference, because XML repeats it there.
const Object* Reader::objectAt(std::uint64_t index, int depth)
{
    if (index >= m_objects.size()) {
        return nullptr;
    }
    Object& object = m_objects[index];
    if (object.state == Object::State::BeingRead) {
        return nullptr;
    }
    if (object.state == Object::State::Unread) {
        object.state = Object::State::BeingRead;
        std::optional<Object> result = readObject(index, depth);
        if (!result) {
            return nullptr;
        }
        object = std::move(*result);
        object.state = Object::State::Read;
    }
    const bool isAllowed =
        depth + object.height <= maximumDepth && object.written <= maximumSize && object.elements <= maximumElements;
    return isAllowed ? &object : nullptr;
}

std::optional<Object> Reader::readObject(std::uint64_t index, int depth)
{
    const std::uint64_t offset = numberAt(m_trailer.offsetTable + index * m_trailer.offsetWidth, m_trailer.offsetWidth);
    const std::optional<std::string_view> first = claim(offset, 1, 1);
    if (!first) {
        return std::nullopt;
    }
    const unsigned marker = static_cast<unsigned char>(first->front());
    Head head{marker >> 4U, marker & 0xFU, offset + 1};
    switch (head.kind) {
    case 0xA: // array
    case 0xB: // ordered set
    case 0xC: // set
    case 0xD: {
        const std::optional<std::size_t> count = readCount(head);
        if (!count || depth >= maximumDepth) {
            return std::nullopt;
        }
        return head.kind == 0xD ? readDictionary(head.position, *count, depth)
                                : readArray(head.position, *count, depth);
    }
    default:
        return readPlain(head);
    }
}

/// Reads a value that refers to no others.
std::optional<Object> Reader::readPlain(const Head& head)
{
    Head rest = head;
    std::optional<Value> value;
    std::size_t length = 0;
    switch (head.kind) {
    case 0x0:
        if (head.extra == 0x8 || head.extra == 0x9) {
            value = Value(head.extra == 0x9);
        }
        break;
    case 0x1:
        value = readInteger(head.position, std::size_t{1} << head.extra);
        break;
    case 0x2:
        value = readReal(head.position, std::size_t{1} << head.extra);
        break;
    case 0x3:
        value = head.extra == 0x3 ? readDate(head.position) : std::nullopt;
        break;
    case 0x8:
        value = readUid(head.position, head.extra + 1);
        break;
    case 0x4:
    case 0x5:
    case 0x6: {
        const std::optional<std::size_t> count = readCount(rest);
        const auto bytes = count ? claim(rest.position, *count, head.kind == 0x6 ? 2 : 1) : std::nullopt;
        length = bytes ? bytes->size() * (head.kind == 0x6 ? 3 : 2) : 0;
        if (!bytes || !take(1, ListMemory::textSize + length)) {
            return std::nullopt;
        }
        if (head.kind == 0x4) {
            const auto data = std::as_bytes(std::span(bytes->data(), bytes->size()));
            value = Value(std::vector<std::byte>(data.begin(), data.end()));
        } else if (head.kind == 0x6) {
            value = Value(utf8FromUtf16(*bytes, ByteOrder::BigEndian).utf8);
        } else if (isUtf8(*bytes)) {
            value = Value(std::string(*bytes));
        }
        break;
    }
    default:
        break;
    }
    return value ? std::optional(Object{Object::State::Read, std::move(*value), 0, markupSize + length, 1})
                 : std::nullopt;
}

/// The count in the marker, or in the integer after it, which is then skipped.
std::optional<std::size_t> Reader::readCount(Head& head)
{
    constexpr unsigned countFollows = 0xF;
    if (head.extra != countFollows) {
        return head.extra;
    }
    const std::optional<std::string_view> marker = claim(head.position, 1, 1);
    const unsigned byte = marker ? static_cast<unsigned char>(marker->front()) : 0;
    const std::size_t width = std::size_t{1} << (byte & 0xFU);
    if (byte >> 4U != 0x1 || width > 8 || !claim(head.position + 1, width, 1)) {
        return std::nullopt;
    }
    const std::uint64_t count = numberAt(head.position + 1, width);
    head.position += 1 + width;
    return count;
}

std::optional<Object> Reader::readArray(std::size_t position, std::size_t count, int depth)
{
    if (!claim(position, count, m_trailer.referenceWidth) || !take(1, ListMemory::arraySize) ||
        !take(count, sizeof(Value))) {
        return std::nullopt;
    }
    Object result{Object::State::Read, Value(false), 1, markupSize, 1};
    Array array;
    array.reserve(static_cast<qsizetype>(count));
    for (std::size_t i = 0; i < count; ++i) {
        const Object* element = objectAt(referenceAt(position, i), depth + 1);
        if (!element) {
            return std::nullopt;
        }
        result.height = std::max(result.height, element->height + 1);
        result.written += element->written;
        result.elements += element->elements;
        array.append(element->value);
    }
    result.value = Value(std::move(array));
    return result;
}

std::optional<Object> Reader::readDictionary(std::size_t position, std::size_t count, int depth)
{
    if (!claim(position, count, 2 * m_trailer.referenceWidth) || !take(1, ListMemory::dictionarySize) ||
        !take(count, sizeof(Dictionary::Entry))) {
        return std::nullopt;
    }
    Object result{Object::State::Read, Value(false), 1, markupSize, 1};
    std::vector<Dictionary::Entry> entries;
    entries.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        const Object* key = objectAt(referenceAt(position, i), depth + 1);
        const Object* value = objectAt(referenceAt(position, count + i), depth + 1);
        if (!key || !key->value.text() || !value || !take(1, key->value.text()->size())) {
            return std::nullopt;
        }
        result.height = std::max(result.height, value->height + 1);
        result.written += key->written + value->written;
        result.elements += key->elements + value->elements;
        entries.emplace_back(std::string(*key->value.text()), value->value);
    }
    result.value = Value(Dictionary(std::move(entries)));
    return result;
}

/// Integers of up to four bytes are unsigned and those of eight are signed; one of sixteen is read when its value fits
/// in 64 bits.
std::optional<Value> Reader::readInteger(std::size_t position, std::size_t width)
{
    if (width > 16 || !claim(position, width, 1)) {
        return std::nullopt;
    }
    const std::size_t lowWidth = std::min<std::size_t>(width, 8);
    const std::uint64_t low = numberAt(position + width - lowWidth, lowWidth);
    const bool lowIsNegative = low >> 63U != 0;
    bool negative = width == 8 && lowIsNegative;
    if (width == 16) {
        const std::uint64_t high = numberAt(position, 8);
        negative = high == ~std::uint64_t{0} && lowIsNegative;
        if (high != 0 && !negative) {
            return std::nullopt;
        }
    }
    return Value(Integer{negative ? ~low + 1 : low, negative});
}

std::optional<Value> Reader::readReal(std::size_t position, std::size_t width)
{
    if ((width != 4 && width != 8) || !claim(position, width, 1)) {
        return std::nullopt;
    }
    const std::uint64_t bits = numberAt(position, width);
    return Value(width == 4 ? static_cast<double>(std::bit_cast<float>(static_cast<std::uint32_t>(bits)))
                            : std::bit_cast<double>(bits));
}

/// A date is stored as seconds since the start of 2001.
std::optional<Value> Reader::readDate(std::size_t position)
{
    if (!claim(position, 8, 1)) {
        return std::nullopt;
    }
    constexpr double unixSecondsOf2001 = 978307200;
    const Date date = dateFromUnixSeconds(std::bit_cast<double>(numberAt(position, 8)) + unixSecondsOf2001);
    return canBeNamed(date) ? std::optional(Value(date)) : std::nullopt;
}

/// An identifier of a keyed archive, in the form that it has in XML.
std::optional<Value> Reader::readUid(std::size_t position, std::size_t width)
{
    if (width > 8 || !claim(position, width, 1) || !take(1, ListMemory::dictionarySize + sizeof(Dictionary::Entry))) {
        return std::nullopt;
    }
    return Value(Dictionary{{"CF$UID", Value(Integer{numberAt(position, width), false})}});
}

} // namespace

std::optional<Value> readBinary(std::string_view bytes)
{
    return Reader(bytes).read();
}

} // namespace PropertyList
