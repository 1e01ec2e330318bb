// SPDX-License-Identifier: MIT
#include "store/PropertyListParts.h"

#include <QUtf8StringView>
#include <unicode/ustring.h>

namespace PropertyList {

bool isUtf8(std::string_view bytes)
{
    return QUtf8StringView(bytes.data(), static_cast<qsizetype>(bytes.size())).isValidUtf8();
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
