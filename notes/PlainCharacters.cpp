// SPDX-License-Identifier: MIT
#include "notes/PlainCharacters.h"

#include <unicode/uchar.h>

#include <algorithm>
#include <bit>

namespace {

constexpr char32_t replacement = U'\uFFFD';

struct Range {
    char32_t first;
    char32_t last;
};

// Blocks that are looked through for plain characters: the European and Hebrew letters, their extensions, punctuation
// and currency signs, kana. The unified ideographs fold to themselves and need no table.
constexpr Range tabled[] = {{0x0000, 0x05FF}, {0x1E00, 0x20CF}, {0x3000, 0x30FF}};

bool isContinuation(char byte)
{
    return (static_cast<std::uint8_t>(byte) & 0xC0) == 0x80;
}

bool joinsWithNoPlainNeighbour(char32_t character)
{
    switch (u_getIntPropertyValue(static_cast<UChar32>(character), UCHAR_GRAPHEME_CLUSTER_BREAK)) {
    case U_GCB_OTHER:
    case U_GCB_CONTROL:
    case U_GCB_LF: // joins with a carriage return only
        return u_getCombiningClass(static_cast<UChar32>(character)) == 0;
    default:
        return false;
    }
}

FoldedCharacter foldedCharacter(char32_t character, Folding folding)
{
    FoldedCharacter result;
    const icu::UnicodeString folded = foldedText(icu::UnicodeString(static_cast<UChar32>(character)), folding);
    if (folded.countChar32() > static_cast<int>(result.characters.size())) {
        return result;
    }
    for (int at = 0; at < folded.length(); at = folded.moveIndex32(at, 1)) {
        result.characters[result.length++] = static_cast<char32_t>(folded.char32At(at));
    }
    return result;
}

} // namespace

const PlainCharacters& PlainCharacters::forFolding(Folding folding)
{
    if (folding == Folding::TurkicFolding) {
        static const PlainCharacters turkic(Folding::TurkicFolding);
        return turkic;
    }
    static const PlainCharacters general(Folding::GeneralFolding);
    return general;
}

PlainCharacters::PlainCharacters(Folding folding) : m_table(std::ranges::max(tabled, {}, &Range::last).last + 1)
{
    for (const Range range : tabled) {
        for (char32_t character = range.first; character <= range.last; ++character) {
            if (joinsWithNoPlainNeighbour(character)) {
                m_table[character] = foldedCharacter(character, folding);
            }
        }
    }
}

bool PlainCharacters::isSureBoundary(std::string_view utf8, std::size_t position) const
{
    if (position == 0 || position == utf8.size()) {
        return true;
    }
    return folded(characterBefore(utf8, position).character) && folded(characterAt(utf8, position).character);
}

DecodedCharacter characterAt(std::string_view utf8, std::size_t position)
{
    const auto lead = static_cast<std::uint8_t>(utf8[position]);
    if (lead < 0x80) {
        return {lead, position, position + 1};
    }
    const DecodedCharacter malformed = {replacement, position, position + 1};
    const auto length = static_cast<std::size_t>(std::countl_one(lead));
    if (length < 2 || length > 4 || utf8.size() - position < length) {
        return malformed;
    }
    char32_t character = lead & (0x7FU >> length);
    for (const char byte : utf8.substr(position + 1, length - 1)) {
        if (!isContinuation(byte)) {
            return malformed;
        }
        character = character << 6 | (static_cast<std::uint8_t>(byte) & 0x3FU);
    }
    constexpr char32_t leastOfLength[] = {0x80, 0x800, 0x10000};
    const bool surrogate = character >= 0xD800 && character <= 0xDFFF;
    if (character < leastOfLength[length - 2] || character > 0x10FFFF || surrogate) {
        return malformed;
    }
    return {character, position, position + length};
}

DecodedCharacter characterBefore(std::string_view utf8, std::size_t position)
{
    std::size_t begin = position - 1;
    while (begin > 0 && position - begin < 4 && isContinuation(utf8[begin])) {
        --begin;
    }
    const DecodedCharacter decoded = characterAt(utf8, begin);
    return decoded.end == position ? decoded : DecodedCharacter{replacement, position - 1, position};
}
