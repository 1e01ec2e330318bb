// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

/// The translation of `english` into the user's language, or `english` itself where there is none.
QString localized(const char* english, const char* disambiguation = nullptr);

/// `format` with its placeholders "%@", "%ld" and "%d" replaced by `values` in turn. "%2$@" takes the second value
/// wherever it stands, for languages with another word order. A placeholder without a value is left as it is.
QString filled(const QString& format, const QStringList& values);
