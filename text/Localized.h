// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

/// The text in the user's language whose English text is `english`; the English text itself where there is no
/// translation.
QString localized(const char* english, const char* disambiguation = nullptr);

/// `format` with its placeholders "%@", "%ld" and "%d" replaced by `values` in turn. A placeholder "%2$@" takes
/// the second value wherever it stands, for languages of another word order. A placeholder without a value stays.
QString filled(const QString& format, const QStringList& values);
