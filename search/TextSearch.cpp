// SPDX-License-Identifier: MIT
#include "search/TextSearch.h"

#include "search/FoldSources.h"
#include "search/PlainCharacters.h"
#include "text/DecodedCharacter.h"

#include <algorithm>
#include <limits>

namespace {

// A rare character is found among this many, however long the needle.
constexpr std::size_t mostAnchors = 32;

/// Estimated nanoseconds for each kilobyte of text.
double cost(double finds, std::size_t probes)
{
    constexpr double ofFind = 20;
    constexpr double ofProbe = 150;
    return finds * ofFind + static_cast<double>(probes) * ofProbe;
}

constexpr std::uint8_t caseBit = 0x20;

bool isAscii(char32_t character)
{
    return character < 0x80;
}

bool isLetter(char32_t folded)
{
    return folded >= U'a' && folded <= U'z';
}

/// Roughly how often a folded character occurs in a kilobyte of everyday European text.
double frequency(char32_t folded)
{
    constexpr int ofLetters[] = {65, 16, 25, 40, 120, 18, 25, 45, 65, 2,  10, 38, 25,
                                 80, 50, 18, 1,  60,  60, 70, 35, 8,  15, 2,  10, 8};
    constexpr double ofSpace = 150;
    constexpr double ofOthers = 6;
    if (isLetter(folded)) {
        return ofLetters[folded - U'a'];
    }
    return folded == U' ' ? ofSpace : ofOthers;
}

BytePair asciiPair(char32_t first)
{
    return {isLetter(first) ? caseBit : std::uint8_t{0}, static_cast<std::uint8_t>(first), 0xFF, 0xFF};
}

BytePair asciiPair(char32_t first, char32_t second)
{
    BytePair pair = asciiPair(first);
    pair.secondMask = isLetter(second) ? caseBit : 0;
    pair.second = static_cast<std::uint8_t>(second);
    return pair;
}

} // namespace

TextSearch::TextSearch(std::string_view needle, const std::string& locale)
    : m_folding(foldingForLocale(locale)), m_plain(PlainCharacters::forFolding(m_folding)), m_needle(needle),
      m_reference(foldedText(icu::UnicodeString::fromUTF8(needle), m_folding))
{
    for (int at = 0; at < m_reference.length(); at = m_reference.moveIndex32(at, 1)) {
        m_folded += static_cast<char32_t>(m_reference.char32At(at));
    }
    if (m_folded.find(malformedBytes) != std::u32string::npos) {
        m_needle.clear();
    }
    chooseAnchor();
}

bool TextSearch::isContainedIn(std::string_view utf8) const
{
    if (m_folded.empty()) {
        return false;
    }
    if (m_probes.empty()) {
        return isContainedIn(utf8, Window{0, utf8.size()});
    }
    BytePairScan scan(utf8, m_pairs);
    std::size_t undecided = 0; // matches before this position are decided
    for (std::size_t at = scan.next(0); at != std::string_view::npos; at = scan.next(std::max(at + 1, undecided))) {
        const Verdict verdict = judge(utf8, at);
        if (verdict == Verdict::Match) {
            return true;
        }
        if (verdict == Verdict::NoMatch) {
            continue;
        }
        const Window window = windowAround(utf8, at);
        if (isContainedIn(utf8, window)) {
            return true;
        }
        if (window.end == utf8.size()) {
            return false;
        }
        undecided = window.end - reach();
    }
    return false;
}

void TextSearch::chooseAnchor()
{
    double lowest = std::numeric_limits<double>::infinity();
    const auto consider = [&](Anchor anchor) {
        if (anchor.cost < lowest) {
            lowest = anchor.cost;
            m_probes = std::move(anchor.probes);
        }
    };
    for (std::size_t index = 0; index < std::min(m_folded.size(), mostAnchors); ++index) {
        if (canAnchor(index)) {
            consider(anchorAt(index));
            if (isAscii(m_folded[index]) && canAnchor(index + 1) && isAscii(m_folded[index + 1])) {
                consider(pairAnchorAt(index));
            }
        }
    }
    std::ranges::transform(m_probes, std::back_inserter(m_pairs), &Probe::pair);
}

bool TextSearch::canAnchor(std::size_t index) const
{
    return index < m_folded.size() && FoldSources::instance().canAnchor(m_folded[index], m_folding);
}

TextSearch::Anchor TextSearch::anchorAt(std::size_t index) const
{
    Anchor anchor;
    const char32_t folded = m_folded[index];
    if (isAscii(folded)) {
        anchor.probes.push_back({.pair = asciiPair(folded), .start = index});
    }
    addForeignSpellings(anchor, index);
    anchor.cost = cost(frequency(folded), anchor.probes.size());
    return anchor;
}

// Two adjacent ASCII characters make a rare pair of bytes; other spellings of either one are scanned for as well.
TextSearch::Anchor TextSearch::pairAnchorAt(std::size_t index) const
{
    Anchor anchor;
    const char32_t first = m_folded[index];
    const char32_t second = m_folded[index + 1];
    anchor.probes.push_back({.pair = asciiPair(first, second), .start = index});
    addForeignSpellings(anchor, index);
    addForeignSpellings(anchor, index + 1);
    anchor.cost = cost(frequency(first) * frequency(second) / 1000, anchor.probes.size());
    return anchor;
}

void TextSearch::addForeignSpellings(Anchor& anchor, std::size_t index) const
{
    for (const Spelling& spelling : FoldSources::instance().spellings(m_folded, index)) {
        if (isAscii(spelling.character)) {
            continue; // the ASCII pair covers both cases
        }
        std::string bytes;
        icu::UnicodeString(static_cast<UChar32>(spelling.character)).toUTF8String(bytes);
        const std::size_t offset = bytes.size() - 2;
        const BytePair pair = {0, static_cast<std::uint8_t>(bytes[offset]), 0,
                               static_cast<std::uint8_t>(bytes[offset + 1])};
        anchor.probes.push_back({pair, spelling.character, offset, spelling.start});
    }
}

// How many bytes a match can extend to either side of a position in it: each character of the needle comes from at most
// four bytes (a dotted i in Turkic folding from three).
std::size_t TextSearch::reach() const
{
    return 4 * m_folded.size();
}

TextSearch::Verdict TextSearch::judge(std::string_view utf8, std::size_t candidate) const
{
    for (const Probe& probe : m_probes) {
        if (candidate < probe.pairOffset || !probe.pair.fits(utf8, candidate)) {
            continue;
        }
        const std::size_t position = candidate - probe.pairOffset;
        if (probe.character != 0 && characterAt(utf8, position).character != probe.character) {
            continue;
        }
        Verdict verdict = compareForward(utf8, position, probe.start);
        if (verdict == Verdict::Match) {
            verdict = compareBackward(utf8, position, probe.start);
        }
        if (verdict != Verdict::NoMatch) {
            return verdict;
        }
    }
    return Verdict::NoMatch;
}

TextSearch::Verdict TextSearch::compareForward(std::string_view utf8, std::size_t position, std::size_t start) const
{
    std::u32string_view rest = std::u32string_view(m_folded).substr(start);
    DecodedCharacter decoded = characterAt(utf8, position);
    FoldedCharacter folded = m_plain.folded(decoded.character);
    while (!rest.empty()) {
        if (!folded) {
            return Verdict::Undecided;
        }
        if (folded.characters.front() != rest.front()) {
            return Verdict::NoMatch; // whatever marks follow
        }
        const bool last = decoded.end == utf8.size();
        FoldedCharacter next;
        if (!last) {
            decoded = characterAt(utf8, decoded.end);
            next = m_plain.folded(decoded.character);
            if (!next) {
                return Verdict::Undecided; // it may be a mark on this character
            }
        }
        if (!rest.starts_with(folded.view())) {
            return Verdict::NoMatch;
        }
        rest.remove_prefix(folded.length);
        if (last) {
            return rest.empty() ? Verdict::Match : Verdict::NoMatch;
        }
        folded = next;
    }
    return Verdict::Match;
}

// The character at `position` must be plain.
TextSearch::Verdict TextSearch::compareBackward(std::string_view utf8, std::size_t position, std::size_t start) const
{
    std::u32string_view rest = std::u32string_view(m_folded).substr(0, start);
    while (position > 0) {
        const DecodedCharacter before = characterBefore(utf8, position);
        const FoldedCharacter folded = m_plain.folded(before.character);
        if (!folded) {
            return Verdict::Undecided;
        }
        if (rest.empty()) {
            return Verdict::Match;
        }
        if (!rest.ends_with(folded.view())) {
            return Verdict::NoMatch;
        }
        rest.remove_suffix(folded.length);
        position = before.begin;
    }
    return rest.empty() ? Verdict::Match : Verdict::NoMatch;
}

// A window that holds every match that includes `candidate`, and that can be judged by itself.
TextSearch::Window TextSearch::windowAround(std::string_view utf8, std::size_t candidate) const
{
    Window window{candidate - std::min(candidate, reach()), std::min(utf8.size(), candidate + reach())};
    while (!m_plain.isSureBoundary(utf8, window.begin)) {
        --window.begin;
    }
    while (!m_plain.isSureBoundary(utf8, window.end)) {
        ++window.end;
    }
    return window;
}

bool TextSearch::isContainedIn(std::string_view utf8, Window window) const
{
    const std::string_view inside = utf8.substr(window.begin, window.end - window.begin);
    // An exact occurrence needs no folding.
    if (const std::size_t found = m_needle.empty() ? std::string_view::npos : inside.find(m_needle);
        found != std::string_view::npos && m_plain.isSureBoundary(inside, found) &&
        m_plain.isSureBoundary(inside, found + m_needle.size())) {
        return true;
    }
    return containsFolded(inside, m_reference, m_folding);
}
