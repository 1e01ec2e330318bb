// SPDX-License-Identifier: MIT
#pragma once

#include "search/BytePairs.h"
#include "search/TextFolding.h"

#include <unicode/unistr.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

class PlainCharacters;

/// Looks for one text in many, as a person would: case is ignored, by the rules of the locale; precomposed and
/// decomposed characters are the same; marks matter; a character and its marks match as a whole or not at all. The
/// answers are those of `containsFolded`.
///
/// Nearly every text is decided on its bytes: a scan for the rarest character of the needle in all its spellings, then
/// a comparison around each hit. Where a hit has neighbours that cannot be compared one by one (combining marks,
/// joiners), `containsFolded` decides on its surroundings.
class TextSearch {
public:
    /// `needle` is UTF-8, in which each malformed byte counts as U+FFFD; `locale` is an ICU identifier.
    TextSearch(std::string_view needle, const std::string& locale);

    /// Whether `utf8` contains the needle; false for an empty needle. Safe on several threads at once.
    bool isContainedIn(std::string_view utf8) const;

private:
    enum class Verdict { Match, NoMatch, Undecided };

    /// One spelling to scan for.
    struct Probe {
        BytePair pair;
        char32_t character = 0;     // 0 for ASCII, where the pair is enough
        std::size_t pairOffset = 0; // bytes from the start of the character to its pair
        std::size_t start = 0;      // index in m_folded of the first character that it folds to
    };

    struct Anchor {
        std::vector<Probe> probes; // every match contains one of them
        double cost = 0;           // estimated nanoseconds for a kilobyte of text
    };

    struct Window {
        std::size_t begin = 0;
        std::size_t end = 0;
    };

    bool canAnchor(std::size_t index) const;
    Anchor anchorAt(std::size_t index) const;
    Anchor pairAnchorAt(std::size_t index) const;
    void addForeignSpellings(Anchor& anchor, std::size_t index) const;
    void chooseAnchor();
    std::size_t reach() const;
    Verdict judge(std::string_view utf8, std::size_t candidate) const;
    Verdict compareForward(std::string_view utf8, std::size_t position, std::size_t start) const;
    Verdict compareBackward(std::string_view utf8, std::size_t position, std::size_t start) const;
    Window windowAround(std::string_view utf8, std::size_t candidate) const;
    bool isContainedIn(std::string_view utf8, Window window) const;

    Folding m_folding;
    const PlainCharacters& m_plain;
    std::string m_needle;           // as given; empty when malformed
    icu::UnicodeString m_reference; // folded
    std::u32string m_folded;        // the same
    std::vector<Probe> m_probes;    // empty when no character of the needle can be scanned for
    std::vector<BytePair> m_pairs;  // of m_probes
};
