// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>

/// Whether a surrogate pair, a character of two UTF-16 units, begins at `position` of `text`.
inline bool isPairAt(QStringView text, qsizetype position)
{
    return text[position].isHighSurrogate() && position + 1 < text.size() && text[position + 1].isLowSurrogate();
}

/// The code point at the front of `text`, which is not empty and becomes shorter by it; half a pair is one by itself.
inline char32_t takeCodePoint(QStringView& text)
{
    const bool pair = isPairAt(text, 0);
    const char32_t codePoint = pair ? QChar::surrogateToUcs4(text[0], text[1]) : text[0].unicode();
    text = text.sliced(pair ? 2 : 1);
    return codePoint;
}
