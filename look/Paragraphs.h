// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QTextOption>

/// `text` with a line feed for each line break, whatever it is; CR LF is one.
QString withLineFeeds(const QString& text);

/// How `paragraph` is set: wrapped, in the direction of its first letter (`fallback` when it has none), and from the
/// edge at which that direction begins.
QTextOption optionOf(QStringView paragraph, Qt::LayoutDirection fallback);
