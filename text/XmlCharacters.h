// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// `text` without the characters that XML 1.0 cannot represent: control characters other than tab, line feed and
/// carriage return, unpaired surrogates, U+FFFE and U+FFFF. Typed and pasted text passes through here before it reaches
/// a record.
QString withoutForbiddenXmlCharacters(const QString& text);
