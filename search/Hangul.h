// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

/// Arithmetic of Hangul syllables, which consist of jamo: a leading consonant, a vowel and an optional trailing
/// consonant.
namespace Hangul {

inline constexpr char32_t firstSyllable = 0xAC00;
inline constexpr char32_t lastSyllable = 0xD7A3;
inline constexpr char32_t firstLeading = 0x1100;
inline constexpr char32_t firstVowel = 0x1161;
inline constexpr char32_t firstTrailing = 0x11A8;
inline constexpr char32_t leadingCount = 19;
inline constexpr char32_t vowelCount = 21;
inline constexpr char32_t trailingCount = 27;

constexpr bool isSyllable(char32_t character)
{
    return character >= firstSyllable && character <= lastSyllable;
}

constexpr bool isLeading(char32_t character)
{
    return character >= firstLeading && character < firstLeading + leadingCount;
}

constexpr bool isVowel(char32_t character)
{
    return character >= firstVowel && character < firstVowel + vowelCount;
}

constexpr bool isTrailing(char32_t character)
{
    return character >= firstTrailing && character < firstTrailing + trailingCount;
}

struct Jamo {
    char32_t leading = 0;
    char32_t vowel = 0;
    char32_t trailing = 0; ///< 0 for none
};

constexpr char32_t composed(Jamo jamo)
{
    const char32_t open = (jamo.leading - firstLeading) * vowelCount + (jamo.vowel - firstVowel);
    const char32_t closing = jamo.trailing == 0 ? 0 : jamo.trailing - firstTrailing + 1;
    return firstSyllable + open * (trailingCount + 1) + closing;
}

constexpr Jamo decomposed(char32_t syllable)
{
    const char32_t index = syllable - firstSyllable;
    const char32_t open = index / (trailingCount + 1);
    const char32_t closing = index % (trailingCount + 1);
    return {firstLeading + open / vowelCount, firstVowel + open % vowelCount,
            closing == 0 ? 0 : firstTrailing + closing - 1};
}

} // namespace Hangul
