// SPDX-License-Identifier: MIT
#pragma once

#include "search/TextFolding.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// A way in which a text can spell one character of a folded needle.
struct Spelling {
    char32_t character = 0; ///< the character in the text
    std::size_t start = 0;  ///< index in the needle of the first character that it folds to
};

/// The inverse of folding: which characters fold to a given one.
class FoldSources {
public:
    /// Built at the first call, then shared; safe on any thread. Serves both foldings.
    static const FoldSources& instance();

    /// Whether `spellings` knows every spelling of this character of a folded needle. It does not for combining marks,
    /// which change places; for Hangul vowels and trailing consonants, which only their leading consonant anchors; for
    /// i and dotless i in Turkic folding, which depend on the marks after them; and for U+FFFD, which stands for any
    /// malformed byte.
    bool canAnchor(char32_t folded, Folding folding) const;

    /// Every character of a text that can match character `index` of `foldedNeedle` where the whole needle matches; the
    /// character itself comes first. `canAnchor` must hold for it.
    std::vector<Spelling> spellings(std::u32string_view foldedNeedle, std::size_t index) const;

private:
    struct Source {
        char32_t character;
        std::u32string prefix; // what it folds to, up to the first combining mark
        std::u32string marks;  // the rest: marks, and what marks or characters after them fold to
    };

    FoldSources();
    void add(char32_t character);
    bool fits(const Source& source, std::u32string_view foldedNeedle, std::size_t start) const;
    bool canFollowAsMark(char32_t folded) const;

    std::vector<Source> m_sources;
    std::u32string m_hidden; // other characters than marks that come from a mark or from what follows one; sorted
};
