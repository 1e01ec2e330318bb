// SPDX-License-Identifier: MIT
#pragma once

#include <unicode/unistr.h>

#include <string>
#include <string_view>

/// How letters lose their case: Turkish and Azeri tell dotted and dotless i apart.
enum class Folding { GeneralFolding, TurkicFolding };

/// What each byte that is not UTF-8 counts as.
inline constexpr char32_t malformedBytes = U'\uFFFD';

/// `locale` is an ICU identifier, for example "tr_TR".
Folding foldingForLocale(const std::string& locale);

/// `text` without case and in one canonical form: two texts fold to the same exactly when they differ in nothing but
/// case and in how characters with marks are composed. Full case folding, so ß gives ss.
icu::UnicodeString foldedText(const icu::UnicodeString& text, Folding folding);

/// Whether `text` contains what was folded to `foldedNeedle`, beginning and ending between two characters as a reader
/// sees them (grapheme clusters): e is not in é, nor s in ß. The empty needle is in nothing. Bytes that are not UTF-8
/// count as U+FFFD each.
///
/// Straight from the definition and slow; TextSearch gives the same answers fast.
bool containsFolded(std::string_view utf8, const icu::UnicodeString& foldedNeedle, Folding folding);
