// SPDX-License-Identifier: MIT
#include "text/XmlCharacters.h"

#include "text/CodePoint.h"

#include <QStringView>

namespace {

bool isAllowed(char16_t c)
{
    return c == u'\t' || c == u'\n' || c == u'\r' || (c >= u' ' && c < u'\uFFFE');
}

} // namespace

QString withoutForbiddenXmlCharacters(const QString& text)
{
    QString kept;
    kept.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        if (!c.isSurrogate()) {
            if (isAllowed(c.unicode())) {
                kept += c;
            }
        } else if (isPairAt(text, i)) {
            kept += c;
            kept += text[++i];
        }
    }
    return kept;
}
