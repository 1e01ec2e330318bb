// SPDX-License-Identifier: MIT
#include "text/Localized.h"

#include <QCoreApplication>
#include <QRegularExpression>

QString localized(const char* english, const char* disambiguation)
{
    return QCoreApplication::translate("Velumora", english, disambiguation);
}

QString filled(const QString& format, const QStringList& values)
{
    static const QRegularExpression placeholder(QStringLiteral("%(?:([1-9])\\$)?(?:@|ld|d)"));
    QString text;
    qsizetype end = 0;
    qsizetype next = 0;
    for (auto matches = placeholder.globalMatch(format); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        const qsizetype index = match.hasCaptured(1) ? match.captured(1).toInt() - 1 : next++;
        text += QStringView(format).sliced(end, match.capturedStart() - end);
        text += index < values.size() ? values.at(index) : match.captured();
        end = match.capturedEnd();
    }
    text += QStringView(format).sliced(end);
    return text;
}
