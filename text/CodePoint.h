// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>

/// Whether a surrogate pair, a character of two UTF-16 units, begins at `position` of `text`.
inline bool isPairAt(QStringView text, qsizetype position)
{
    return text[position].isHighSurrogate() && position + 1 < text.size() && text[position + 1].isLowSurrogate();
}

/// Removes the first code point from `text`, which must not be empty, and returns it. An unpaired surrogate counts as a
/// code point of its own.
inline char32_t takeCodePoint(QStringView& text)
{
    const bool pair = isPairAt(text, 0);
    const char32_t codePoint = pair ? QChar::surrogateToUcs4(text[0], text[1]) : text[0].unicode();
    text = text.sliced(pair ? 2 : 1);
    return codePoint;
}
