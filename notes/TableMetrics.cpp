// SPDX-License-Identifier: MIT
#include "notes/TableMetrics.h"

#include "notes/CellLines.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QTextDocument>

#include <algorithm>
#include <cmath>

QFont cellFont()
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    font.setPixelSize(13);
    return font;
}

int baselineInLine(const QFont& font, double lineHeight)
{
    const QFontMetricsF metrics(font);
    const double middle = std::round((lineHeight - metrics.ascent() - metrics.descent()) / 2 + metrics.ascent());
    const double lowest =
        std::floor(lineHeight - metrics.descent()); // in a font higher than the line no descender is cut
    return static_cast<int>(std::min(middle, lowest));
}

QString plainToolTip(const QString& text)
{
    constexpr int maximumLines = 30;
    constexpr qsizetype maximumLength = 300;
    QString shown;
    for (const QStringView line : CellLines::slice(text, 0, maximumLines)) {
        shown += shown.isNull() ? QStringLiteral("") : QStringLiteral("\n");
        const QStringView start = CellLines::cut(line, maximumLength);
        shown += start;
        shown += start.size() < line.size() ? QStringLiteral("…") : QString();
    }
    shown += CellLines::slice(text, maximumLines, 1).empty() ? QString() : QStringLiteral("\n…");
    return Qt::convertFromPlainText(shown, Qt::WhiteSpaceNormal);
}
