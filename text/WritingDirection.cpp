// SPDX-License-Identifier: MIT
#include "text/WritingDirection.h"

#include "text/CodePoint.h"

Qt::LayoutDirection writingDirection(QStringView line, Qt::LayoutDirection fallback)
{
    while (!line.isEmpty()) {
        switch (QChar::direction(takeCodePoint(line))) {
        case QChar::DirL:
            return Qt::LeftToRight;
        case QChar::DirR:
        case QChar::DirAL:
            return Qt::RightToLeft;
        default:
            break;
        }
    }
    return fallback;
}
