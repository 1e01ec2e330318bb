// SPDX-License-Identifier: MIT
#include "look/Paragraphs.h"

#include "text/WritingDirection.h"

QTextOption optionOf(QStringView paragraph, Qt::LayoutDirection fallback)
{
    const Qt::LayoutDirection direction = writingDirection(paragraph, fallback);
    QTextOption option(direction == Qt::RightToLeft ? Qt::AlignRight : Qt::AlignLeft);
    option.setTextDirection(direction);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    return option;
}
