// SPDX-License-Identifier: MIT
#pragma once

#include <unicode/unistr.h>

#include <string>
#include <string_view>

/// How case is removed: Turkish and Azeri distinguish dotted and dotless i.
enum class Folding { GeneralFolding, TurkicFolding };

/// The character that each malformed byte counts as.
inline constexpr char32_t malformedBytes = U'\uFFFD';

/// The folding for a locale; `locale` is an ICU identifier, for example "tr_TR".
Folding foldingForLocale(const std::string& locale);

/// `text` without case and in one canonical form: two texts fold to the same text exactly when they differ only in case
/// and in whether characters with marks are composed. Full case folding, so ß becomes ss.
icu::UnicodeString foldedText(const icu::UnicodeString& text, Folding folding);

/// Whether the folding of `utf8` contains `foldedNeedle`, beginning and ending between two characters as a reader sees
/// them (grapheme clusters): é does not contain e, nor ß s. Nothing contains the empty needle. Each malformed byte
/// counts as U+FFFD.
///
/// This is the definition, and slow; TextSearch gives the same answers fast.
bool containsFolded(std::string_view utf8, const icu::UnicodeString& foldedNeedle, Folding folding);
