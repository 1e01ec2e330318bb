// SPDX-License-Identifier: MIT
#include "text/TextCutting.h"

#include <QTextBoundaryFinder>

#include <algorithm>

namespace {

constexpr QChar ellipsis(0x2026);

/// The last boundary between signs at or before `position`.
qsizetype signStart(QStringView text, qsizetype position)
{
    QTextBoundaryFinder signs(QTextBoundaryFinder::Grapheme, text);
    signs.setPosition(position);
    return signs.isAtBoundary() ? position : std::max<qsizetype>(signs.toPreviousBoundary(), 0);
}

} // namespace

QStringView beginningOf(QStringView text, qsizetype maximum)
{
    if (text.size() <= maximum) {
        return text;
    }
    if (maximum <= 0) {
        return text.first(0);
    }
    constexpr qsizetype longestCharacter =
        2; // in units; whether a sign ends at `maximum` depends on the code point after it
    const qsizetype end = signStart(text.first(std::min(maximum + longestCharacter, text.size())), maximum);
    if (end > 0) {
        return text.first(end);
    }
    const bool splitsPair = text[maximum - 1].isHighSurrogate(); // here a single sign is longer than `maximum`
    return text.first(splitsPair ? maximum - 1 : maximum);
}

QString shortened(QStringView text, qsizetype maximum)
{
    const QStringView beginning = beginningOf(text, maximum);
    return beginning.size() < text.size() ? beginning.toString() + ellipsis : text.toString();
}

QString withoutMiddle(QStringView text, qsizetype maximum)
{
    if (text.size() <= maximum) {
        return text.toString();
    }
    const qsizetype half = maximum / 2;
    return beginningOf(text, half).toString() + ellipsis + text.sliced(signStart(text, text.size() - half)).toString();
}

QStringView firstSignOf(QStringView text)
{
    QTextBoundaryFinder signs(QTextBoundaryFinder::Grapheme, text);
    return text.first(std::max<qsizetype>(signs.toNextBoundary(), 0));
}
