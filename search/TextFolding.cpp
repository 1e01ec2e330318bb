// SPDX-License-Identifier: MIT
#include "search/TextFolding.h"

#include <unicode/brkiter.h>
#include <unicode/locid.h>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>

#include <cstring>
#include <memory>
#include <set>

namespace {

constexpr char16_t dotAbove = u'\u0307';
constexpr std::uint8_t classAbove = 230; // combining class of marks above

icu::UnicodeString decomposed(const icu::UnicodeString& text)
{
    UErrorCode error = U_ZERO_ERROR;
    return icu::Normalizer2::getNFDInstance(error)->normalize(text, error);
}

/// In Turkish, the capital of i is I with a dot above, even when the dot is a separate character. The dot belongs to
/// the I unless another mark above comes between them.
void mergeDottedCapitals(icu::UnicodeString& decomposedText)
{
    for (int at = decomposedText.indexOf(u'I'); at >= 0; at = decomposedText.indexOf(u'I', at + 1)) {
        for (int mark = at + 1; mark < decomposedText.length(); mark = decomposedText.moveIndex32(mark, 1)) {
            if (decomposedText.charAt(mark) == dotAbove) {
                decomposedText.remove(mark, 1);
                decomposedText.setCharAt(at, u'i');
                break;
            }
            const std::uint8_t combiningClass = u_getCombiningClass(decomposedText.char32At(mark));
            if (combiningClass == 0 || combiningClass == classAbove) {
                break;
            }
        }
    }
}

std::unique_ptr<icu::BreakIterator> makeGraphemes()
{
    UErrorCode error = U_ZERO_ERROR;
    return std::unique_ptr<icu::BreakIterator>(
        icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), error));
}

} // namespace

Folding foldingForLocale(const std::string& locale)
{
    const icu::Locale known(locale.c_str());
    const bool turkic = std::strcmp(known.getLanguage(), "tr") == 0 || std::strcmp(known.getLanguage(), "az") == 0;
    return turkic ? Folding::TurkicFolding : Folding::GeneralFolding;
}

icu::UnicodeString foldedText(const icu::UnicodeString& text, Folding folding)
{
    icu::UnicodeString folded = decomposed(text);
    if (folding == Folding::TurkicFolding) {
        mergeDottedCapitals(folded);
    }
    folded.foldCase(folding == Folding::TurkicFolding ? U_FOLD_CASE_EXCLUDE_SPECIAL_I : U_FOLD_CASE_DEFAULT);
    return decomposed(folded);
}

bool containsFolded(std::string_view utf8, const icu::UnicodeString& foldedNeedle, Folding folding)
{
    if (foldedNeedle.isEmpty()) {
        return false;
    }
    const icu::UnicodeString text = decomposed(icu::UnicodeString::fromUTF8(utf8));
    icu::UnicodeString folded;
    std::set<int> boundaries = {0};
    thread_local const std::unique_ptr<icu::BreakIterator> graphemes = makeGraphemes();
    graphemes->setText(text);
    int start = graphemes->first();
    for (int end = graphemes->next(); end != icu::BreakIterator::DONE; start = end, end = graphemes->next()) {
        folded += foldedText(text.tempSubStringBetween(start, end), folding);
        boundaries.insert(folded.length());
    }
    for (int at = folded.indexOf(foldedNeedle); at >= 0; at = folded.indexOf(foldedNeedle, at + 1)) {
        if (boundaries.contains(at) && boundaries.contains(at + foldedNeedle.length())) {
            return true;
        }
    }
    return false;
}
