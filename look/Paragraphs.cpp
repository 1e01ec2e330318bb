// SPDX-License-Identifier: MIT
#include "look/Paragraphs.h"

#include "text/CellLines.h"

#include <algorithm>

QString withLineFeeds(const QString& text)
{
    QString plain = text;
    plain.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    std::ranges::replace_if(
        plain, [](QChar character) { return CellLines::isSeparator(character.unicode()); }, QChar(u'\n'));
    return plain;
}

QTextOption optionOf(QStringView paragraph, Qt::LayoutDirection fallback)
{
    const Qt::LayoutDirection direction = CellLines::direction(paragraph, fallback);
    QTextOption option(direction == Qt::RightToLeft ? Qt::AlignRight : Qt::AlignLeft);
    option.setTextDirection(direction);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    return option;
}
