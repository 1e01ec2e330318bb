// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QString>

#include <vector>

class PrintedText;
class QRectF;

/// Writes `text` into `area`, wrapped, from the top, in the first of `fonts` in which all of it fits; if it fits in
/// none, the last font shows what it can and ends in "…". Nothing is written outside the area. Each paragraph is
/// aligned to the edge where its own direction begins, `fallback` when it has no letter.
void writeFittedText(PrintedText& paper, const QRectF& area, const QString& text, const std::vector<QFont>& fonts,
                     Qt::LayoutDirection fallback);
