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

/// Looks for one text in many, as a person would: case does not count, by the rules of the locale; precomposed and
/// decomposed characters are the same; marks count; and a character with its marks is found whole or not at all. The
/// answers are those of `containsFolded`.
///
/// Nearly every text is decided on its bytes: a scan for the rarest place of the needle in every way it can be spelled,
/// then a comparison around each find. Where a find has neighbours that a comparison one by one cannot judge (combining
/// marks, joiners), `containsFolded` decides on the surroundings.
class TextSearch {
public:
    /// `needle` is UTF-8, malformed bytes count as U+FFFD; `locale` an ICU identifier.
    TextSearch(std::string_view needle, const std::string& locale);

    /// False for an empty needle. Safe on several threads at a time.
    bool isContainedIn(std::string_view utf8) const;

private:
    enum class Verdict { Match, NoMatch, Undecided };

    /// One spelling to scan for.
    struct Probe {
        BytePair pair;
        char32_t character = 0;     // 0 for an ASCII character, whose pair says all
        std::size_t pairOffset = 0; // bytes from the character's beginning to its pair
        std::size_t start = 0;      // index in m_folded of the first character that it folds to
    };

    struct Anchor {
        std::vector<Probe> probes; // every match has one of them in it
        double cost = 0;           // estimated, of scanning one kilobyte
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
    std::vector<Probe> m_probes;    // none when no place of the needle can be scanned for
    std::vector<BytePair> m_pairs;  // of m_probes
};
