// SPDX-License-Identifier: MIT
#include "notes/FoldSources.h"

#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/uniset.h>
#include <unicode/usetiter.h>

#include <algorithm>

namespace {

constexpr char32_t dottedI = U'i';
constexpr char32_t dotlessI = U'\u0131';
constexpr char32_t replacement = U'\uFFFD';

// Hangul syllables are composed by arithmetic.
constexpr char32_t firstSyllable = 0xAC00;
constexpr char32_t lastSyllable = 0xD7A3;
constexpr char32_t firstLeading = 0x1100;
constexpr char32_t firstVowel = 0x1161;
constexpr char32_t firstTrailing = 0x11A8;
constexpr char32_t leadingCount = 19;
constexpr char32_t vowelCount = 21;
constexpr char32_t trailingCount = 27;

bool isMark(char32_t character)
{
    return u_getCombiningClass(static_cast<UChar32>(character)) != 0;
}

bool isWithin(char32_t character, char32_t first, char32_t count)
{
    return character >= first && character - first < count;
}

std::u32string utf32(const icu::UnicodeString& text)
{
    std::u32string result;
    for (int at = 0; at < text.length(); at = text.moveIndex32(at, 1)) {
        result += static_cast<char32_t>(text.char32At(at));
    }
    return result;
}

void addSyllables(std::vector<Spelling>& spellings, std::u32string_view needle, std::size_t index)
{
    if (!isWithin(needle[index], firstLeading, leadingCount) || index + 1 >= needle.size() ||
        !isWithin(needle[index + 1], firstVowel, vowelCount)) {
        return;
    }
    const char32_t open =
        firstSyllable +
        ((needle[index] - firstLeading) * vowelCount + needle[index + 1] - firstVowel) * (trailingCount + 1);
    spellings.push_back({open, index});
    if (index + 2 < needle.size() && isWithin(needle[index + 2], firstTrailing, trailingCount)) {
        spellings.push_back({open + 1 + needle[index + 2] - firstTrailing, index});
    }
}

} // namespace

const FoldSources& FoldSources::instance()
{
    static const FoldSources sources;
    return sources;
}

FoldSources::FoldSources()
{
    UErrorCode error = U_ZERO_ERROR;
    const icu::Normalizer2& nfd = *icu::Normalizer2::getNFDInstance(error);
    icu::UnicodeSet changing;
    changing.addAll(*icu::UnicodeSet::fromUSet(u_getBinaryPropertySet(UCHAR_CHANGES_WHEN_CASEFOLDED, &error)));
    icu::UnicodeString decomposition;
    constexpr char32_t lastDecomposable = 0x2FFFF; // no plane above holds a letter with a decomposition
    for (char32_t character = 0x80; character <= lastDecomposable; ++character) {
        if (nfd.getDecomposition(static_cast<UChar32>(character), decomposition)) {
            changing.add(static_cast<UChar32>(character));
        }
    }
    changing.remove(static_cast<UChar32>(firstSyllable), static_cast<UChar32>(lastSyllable));
    for (icu::UnicodeSetIterator each(changing); each.next();) {
        add(static_cast<char32_t>(each.getCodepoint()));
    }
    std::ranges::sort(m_hidden);
}

void FoldSources::add(char32_t character)
{
    UErrorCode error = U_ZERO_ERROR;
    const std::u32string decomposed = utf32(
        icu::Normalizer2::getNFDInstance(error)->normalize(icu::UnicodeString(static_cast<UChar32>(character)), error));
    const auto mark = std::ranges::find_if(decomposed, isMark);
    icu::UnicodeString prefix;
    std::for_each(decomposed.begin(), mark, [&prefix](char32_t each) { prefix.append(static_cast<UChar32>(each)); });
    std::for_each(mark, decomposed.end(), [this](char32_t each) {
        const std::u32string folded =
            utf32(foldedText(icu::UnicodeString(static_cast<UChar32>(each)), Folding::GeneralFolding));
        std::ranges::remove_copy_if(folded, std::back_inserter(m_hidden), isMark);
    });
    if (!prefix.isEmpty()) {
        m_sources.push_back({character, utf32(foldedText(prefix, Folding::GeneralFolding)), mark != decomposed.end()});
    }
}

bool FoldSources::canAnchor(char32_t folded, Folding folding) const
{
    const bool syllablePart =
        isWithin(folded, firstVowel, vowelCount) || isWithin(folded, firstTrailing, trailingCount);
    const bool turkicI = folding == Folding::TurkicFolding && (folded == dottedI || folded == dotlessI);
    return !canFollowAsMark(folded) && !syllablePart && !turkicI && folded != replacement;
}

bool FoldSources::canFollowAsMark(char32_t folded) const
{
    return isMark(folded) || std::ranges::binary_search(m_hidden, folded);
}

bool FoldSources::fits(const Source& source, std::u32string_view foldedNeedle, std::size_t start) const
{
    if (!foldedNeedle.substr(start).starts_with(source.prefix)) {
        return false;
    }
    const std::size_t next = start + source.prefix.size();
    return !source.marked || (next < foldedNeedle.size() && canFollowAsMark(foldedNeedle[next]));
}

std::vector<Spelling> FoldSources::spellings(std::u32string_view foldedNeedle, std::size_t index) const
{
    std::vector<Spelling> result = {{foldedNeedle[index], index}};
    addSyllables(result, foldedNeedle, index);
    for (const Source& source : m_sources) {
        for (std::size_t offset = 0; offset < source.prefix.size() && offset <= index; ++offset) {
            if (source.prefix[offset] == foldedNeedle[index] && fits(source, foldedNeedle, index - offset)) {
                result.push_back({source.character, index - offset});
            }
        }
    }
    return result;
}
