// SPDX-License-Identifier: MIT
#pragma once

#include "search/Hangul.h"
#include "search/TextFolding.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

/// The folding of one character.
struct FoldedCharacter {
    std::array<char32_t, 3> characters{};
    std::uint32_t length = 0; ///< 0 for a character that is not plain

    explicit operator bool() const { return length != 0; }
    std::u32string_view view() const { return {characters.data(), length}; }
};

/// The characters of everyday writing that never join with each other: a grapheme cluster ends between any two of them,
/// and each is folded by itself. Combining marks, joiners, single jamo and the carriage return are not among them.
class PlainCharacters {
public:
    /// Built at the first call, then shared; safe on any thread.
    static const PlainCharacters& forFolding(Folding folding);

    /// The folding of `character`; false when it is not plain.
    FoldedCharacter folded(char32_t character) const
    {
        if (character < m_table.size()) {
            return m_table[character];
        }
        if (isIdeograph(character)) {
            return {{character}, 1};
        }
        return Hangul::isSyllable(character) ? foldedSyllable(character) : FoldedCharacter();
    }

    /// Whether a grapheme cluster is certain to end at byte `position` of `utf8`, because the text begins or ends there
    /// or both neighbours are plain characters.
    bool isSureBoundary(std::string_view utf8, std::size_t position) const;

private:
    explicit PlainCharacters(Folding folding);

    static bool isIdeograph(char32_t character) { return character >= 0x3400 && character <= 0x9FFF; }

    static FoldedCharacter foldedSyllable(char32_t character)
    {
        const Hangul::Jamo jamo = Hangul::decomposed(character);
        return {{jamo.leading, jamo.vowel, jamo.trailing}, jamo.trailing == 0 ? 2U : 3U};
    }

    std::vector<FoldedCharacter> m_table; // by code point
};
