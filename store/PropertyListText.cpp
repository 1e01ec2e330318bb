// SPDX-License-Identifier: MIT
#include "store/PropertyListParts.h"

#include <unicode/ustring.h>

#include <algorithm>
#include <array>
#include <cstdint>

namespace PropertyList {

namespace {

constexpr std::size_t reach = 3; ///< bytes before a byte that say what it may be

/// Whether `byte` must not stand behind `before`, which stands behind `second`, which stands behind `third`: Unicode's
/// table of well-formed sequences, without branches.
constexpr bool isMisplaced(std::uint8_t third, std::uint8_t second, std::uint8_t before, std::uint8_t byte)
{
    const bool continues = (byte & 0xC0) == 0x80;
    const bool mustContinue = (before >= 0xC2) | (second >= 0xE0) | (third >= 0xF0);
    const bool isNoByte = (byte == 0xC0) | (byte == 0xC1) | (byte >= 0xF5);
    const bool isTooLong = ((before == 0xE0) & (byte < 0xA0)) | ((before == 0xF0) & (byte < 0x90));
    const bool isSurrogate = (before == 0xED) & (byte >= 0xA0);
    const bool isTooLarge = (before == 0xF4) & (byte >= 0x90);
    return (continues != mustContinue) | isNoByte | isTooLong | isSurrogate | isTooLarge;
}

/// Whether one of the bytes behind the first three is misplaced. Compilers turn the loop into vector instructions.
bool hasMisplaced(std::string_view bytes)
{
    const auto* const at = reinterpret_cast<const std::uint8_t*>(bytes.data());
    std::uint8_t found = 0;
    for (std::size_t i = reach; i < bytes.size(); ++i) {
        found |= static_cast<std::uint8_t>(isMisplaced(at[i - 3], at[i - 2], at[i - 1], at[i]));
    }
    return found != 0;
}

bool isAscii(std::string_view bytes)
{
    std::uint8_t all = 0;
    for (const char byte : bytes) {
        all |= static_cast<std::uint8_t>(byte);
    }
    return all < 0x80;
}

} // namespace

bool isUtf8(std::string_view bytes)
{
    if (isAscii(bytes)) {
        return true;
    }
    // The ends are looked at between zeros, which nothing may be continued by.
    const std::size_t edge = std::min(reach, bytes.size());
    std::array<char, 2 * reach> head{};
    std::array<char, 2 * reach> tail{};
    bytes.copy(head.data() + reach, edge);
    bytes.substr(bytes.size() - edge).copy(tail.data() + reach - edge, edge);
    return !hasMisplaced({head.data(), head.size()}) && !hasMisplaced(bytes) &&
           !hasMisplaced({tail.data(), tail.size()});
}

ConvertedText utf8FromUtf16(std::string_view bytes, ByteOrder order)
{
    std::u16string units(bytes.size() / 2, u'\0');
    const std::size_t high = order == ByteOrder::BigEndian ? 0 : 1;
    for (std::size_t i = 0; i < units.size(); ++i) {
        const auto highByte = static_cast<unsigned char>(bytes[2 * i + high]);
        const auto lowByte = static_cast<unsigned char>(bytes[2 * i + 1 - high]);
        units[i] = static_cast<char16_t>(highByte << 8 | lowByte);
    }

    constexpr std::size_t mostBytesOfUnit = 3;
    std::string utf8(units.size() * mostBytesOfUnit, '\0');
    std::int32_t length = 0;
    std::int32_t substitutions = 0;
    UErrorCode status = U_ZERO_ERROR;
    constexpr UChar32 replacementCharacter = 0xFFFD;
    u_strToUTF8WithSub(utf8.data(), static_cast<std::int32_t>(utf8.size()), &length, units.data(),
                       static_cast<std::int32_t>(units.size()), replacementCharacter, &substitutions, &status);
    if (U_FAILURE(status)) {
        return {};
    }
    utf8.resize(static_cast<std::size_t>(length));
    utf8.shrink_to_fit();
    return {std::move(utf8), substitutions == 0 && bytes.size() % 2 == 0};
}

} // namespace PropertyList
