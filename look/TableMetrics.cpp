// SPDX-License-Identifier: MIT
#include "look/TableMetrics.h"

#include "text/TextCutting.h"
#include "text/TextLines.h"
#include "text/WritingDirection.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QGuiApplication>

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
        std::floor(lineHeight - metrics.descent()); // keeps descenders whole when the font is higher than the line
    return static_cast<int>(std::min(middle, lowest));
}

QString plainToolTip(const QString& text)
{
    constexpr int maximumLines = 30;
    constexpr qsizetype maximumLength = 300;
    QString shown;
    const auto add = [&shown](const QString& line) { // as a paragraph, since each line has its own direction
        const bool isRightToLeft = writingDirection(line, QGuiApplication::layoutDirection()) == Qt::RightToLeft;
        shown += QStringLiteral("<p dir=\"%1\" style=\"margin:0\">%2</p>")
                     .arg(isRightToLeft ? QStringLiteral("rtl") : QStringLiteral("ltr"),
                          line.isEmpty() ? QStringLiteral("&nbsp;") : line.toHtmlEscaped());
    };
    for (const QStringView line : linesOf(text, 0, maximumLines)) {
        add(shortened(line, maximumLength));
    }
    if (!linesOf(text, maximumLines, 1).empty()) {
        add(QStringLiteral("…"));
    }
    return shown;
}
