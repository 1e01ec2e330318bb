// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// The text with which the version server announces the newest version.
namespace VersionText {

/// `file` decoded as UTF-8, unchanged: blanks, line ends and a byte order mark are kept. nullopt when it is not valid
/// UTF-8.
std::optional<QString> fromFile(const QByteArray& file);

/// Whether `told` sorts after `own`. They are compared as texts, by UTF-16 code units, not as numbers: 1.10 is not
/// newer than 1.9.
bool isNewer(const QString& told, const QString& own);

} // namespace VersionText
