// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// The text in which the version server tells the newest version.
namespace VersionText {

/// `file` decoded as UTF-8, with its blanks, line ends and byte order mark if it has any; nullopt when it is not UTF-8.
std::optional<QString> fromFile(const QByteArray& file);

/// Whether `told` orders behind `own`: plain texts in the order of their UTF-16 code units, not numbers, so 1.10 is not
/// newer than 1.9.
bool isNewer(const QString& told, const QString& own);

} // namespace VersionText
