// SPDX-License-Identifier: MIT
#include "search/PlainCharacters.h"

#include "text/DecodedCharacter.h"

#include <unicode/uchar.h>

#include <algorithm>

namespace {

struct Range {
    char32_t first;
    char32_t last;
};

// The blocks that may hold plain characters: European and Hebrew letters, their extensions, punctuation and currency
// signs, kana. The unified ideographs fold to themselves and need no table.
constexpr Range tabled[] = {{0x0000, 0x05FF}, {0x1E00, 0x20CF}, {0x3000, 0x30FF}};

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

/// In Turkish, I followed by a dot above is a different letter.
bool changesWithWhatFollows(char32_t character, Folding folding)
{
    return folding == Folding::TurkicFolding && character == U'I';
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
            if (joinsWithNoPlainNeighbour(character) && !changesWithWhatFollows(character, folding)) {
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
