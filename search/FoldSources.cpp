// SPDX-License-Identifier: MIT
#include "search/FoldSources.h"

#include "search/Hangul.h"

#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/uniset.h>
#include <unicode/usetiter.h>

#include <algorithm>

namespace {

constexpr char32_t dottedI = U'i';
constexpr char32_t dotlessI = U'\u0131';

bool isMark(char32_t character)
{
    return u_getCombiningClass(static_cast<UChar32>(character)) != 0;
}

std::u32string utf32(const icu::UnicodeString& text)
{
    std::u32string result;
    for (int at = 0; at < text.length(); at = text.moveIndex32(at, 1)) {
        result += static_cast<char32_t>(text.char32At(at));
    }
    return result;
}

std::u32string foldedEach(std::u32string::const_iterator begin, std::u32string::const_iterator end)
{
    icu::UnicodeString text;
    std::for_each(begin, end, [&text](char32_t each) { text.append(static_cast<UChar32>(each)); });
    return utf32(foldedText(text, Folding::GeneralFolding));
}

void addSyllables(std::vector<Spelling>& spellings, std::u32string_view needle, std::size_t index)
{
    if (!Hangul::isLeading(needle[index]) || index + 1 >= needle.size() || !Hangul::isVowel(needle[index + 1])) {
        return;
    }
    Hangul::Jamo jamo = {needle[index], needle[index + 1]};
    spellings.push_back({Hangul::composed(jamo), index});
    if (index + 2 < needle.size() && Hangul::isTrailing(needle[index + 2])) {
        jamo.trailing = needle[index + 2];
        spellings.push_back({Hangul::composed(jamo), index});
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
    constexpr char32_t lastDecomposable = 0x2FFFF; // no letter above has a decomposition
    for (char32_t character = 0x80; character <= lastDecomposable; ++character) {
        if (nfd.getDecomposition(static_cast<UChar32>(character), decomposition)) {
            changing.add(static_cast<UChar32>(character));
        }
    }
    changing.remove(static_cast<UChar32>(Hangul::firstSyllable), static_cast<UChar32>(Hangul::lastSyllable));
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
    const std::u32string prefix = foldedEach(decomposed.begin(), mark);
    const std::u32string marks = foldedEach(mark, decomposed.end());
    std::ranges::remove_copy_if(marks, std::back_inserter(m_hidden), isMark);
    if (!prefix.empty()) {
        m_sources.push_back({character, prefix, marks});
    }
}

bool FoldSources::canAnchor(char32_t folded, Folding folding) const
{
    const bool syllablePart = Hangul::isVowel(folded) || Hangul::isTrailing(folded);
    const bool turkicI = folding == Folding::TurkicFolding && (folded == dottedI || folded == dotlessI);
    return !canFollowAsMark(folded) && !syllablePart && !turkicI && folded != malformedBytes;
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
    // The marks of the needle may be in another order, with others among them.
    const std::u32string_view rest = foldedNeedle.substr(start + source.prefix.size());
    const auto end = std::ranges::find_if_not(rest, [this](char32_t each) { return canFollowAsMark(each); });
    return std::ranges::all_of(source.marks, [&](char32_t mark) { return std::find(rest.begin(), end, mark) != end; });
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
