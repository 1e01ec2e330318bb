// SPDX-License-Identifier: MIT
#include "text/CellLines.h"

#include <QTextBoundaryFinder>

#include <algorithm>

QStringView CellLines::cut(QStringView line, qsizetype maximum)
{
    if (line.size() <= maximum) {
        return line;
    }
    constexpr qsizetype longestCharacter = 2; // of one code point: the one behind tells whether a sign ends here
    QTextBoundaryFinder signs(QTextBoundaryFinder::Grapheme,
                              line.first(std::min(maximum + longestCharacter, line.size())));
    signs.setPosition(maximum);
    const qsizetype end = signs.isAtBoundary() ? maximum : signs.toPreviousBoundary();
    if (end > 0) {
        return line.first(end);
    }
    const bool splitsPair = maximum > 0 && line[maximum - 1].isHighSurrogate(); // one sign alone is longer
    return line.first(splitsPair ? maximum - 1 : maximum);
}

Qt::LayoutDirection CellLines::direction(QStringView line, Qt::LayoutDirection fallback)
{
    for (qsizetype i = 0; i < line.size(); ++i) {
        const bool isPair = line[i].isHighSurrogate() && i + 1 < line.size() && line[i + 1].isLowSurrogate();
        const char32_t c = isPair ? QChar::surrogateToUcs4(line[i], line[i + 1]) : char32_t{line[i].unicode()};
        switch (QChar::direction(c)) {
        case QChar::DirL:
            return Qt::LeftToRight;
        case QChar::DirR:
        case QChar::DirAL:
            return Qt::RightToLeft;
        default:
            break;
        }
        i += isPair ? 1 : 0;
    }
    return fallback;
}
