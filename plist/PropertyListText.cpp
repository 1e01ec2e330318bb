// SPDX-License-Identifier: MIT
#include "plist/PropertyListParts.h"

#include <unicode/utf16.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <array>
#include <cstdint>

namespace PropertyList {

namespace {

constexpr std::size_t reach = 3; ///< how many preceding bytes decide what a byte may be

/// Whether `byte` must not follow `before`, which follows `second`, which follows `third`: Unicode's table of
/// well-formed sequences, without branches.
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

/// Whether any byte after the first three is misplaced. Compilers vectorise the loop.
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
    // The first and last bytes are checked again between zeros, which must not be followed by a continuation byte.
    const std::size_t edge = std::min(reach, bytes.size());
    std::array<char, 2 * reach> head{};
    std::array<char, 2 * reach> tail{};
    bytes.copy(head.data() + reach, edge);
    bytes.substr(bytes.size() - edge).copy(tail.data() + reach - edge, edge);
    return !hasMisplaced({head.data(), head.size()}) && !hasMisplaced(bytes) &&
           !hasMisplaced({tail.data(), tail.size()});
}

namespace {

/// Calls `take` with each character of the text, and with U+FFFD for an unpaired surrogate. Returns whether there was
/// none of these.
template <typename Take> bool takeCharacters(std::string_view bytes, ByteOrder order, Take take)
{
    constexpr UChar32 replacementCharacter = 0xFFFD;
    const std::size_t high = order == ByteOrder::BigEndian ? 0 : 1;
    const auto unitAt = [&](std::size_t i) {
        return static_cast<char16_t>(static_cast<unsigned char>(bytes[2 * i + high]) << 8 |
                                     static_cast<unsigned char>(bytes[2 * i + 1 - high]));
    };
    const std::size_t units = bytes.size() / 2;
    bool isWhole = true;
    for (std::size_t i = 0; i < units; ++i) {
        const char16_t unit = unitAt(i);
        if (!U16_IS_SURROGATE(unit)) {
            take(static_cast<UChar32>(unit));
        } else if (U16_IS_LEAD(unit) && i + 1 < units && U16_IS_TRAIL(unitAt(i + 1))) {
            take(U16_GET_SUPPLEMENTARY(unit, unitAt(i + 1)));
            ++i;
        } else {
            take(replacementCharacter);
            isWhole = false;
        }
    }
    return isWhole;
}

} // namespace

ConvertedText utf8FromUtf16(std::string_view bytes, ByteOrder order)
{
    std::size_t length = 0;
    takeCharacters(bytes, order, [&length](UChar32 character) { length += U8_LENGTH(character); });
    ConvertedText converted{std::string(length, '\0'), false};
    std::size_t end = 0;
    const bool isWhole = takeCharacters(bytes, order, [&converted, &end](UChar32 character) {
        char* const to = converted.utf8.data();
        U8_APPEND_UNSAFE(to, end, character);
    });
    converted.isWhole = isWhole && bytes.size() % 2 == 0;
    return converted;
}

} // namespace PropertyList
