// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QString>

#include <vector>

class PrintedText;
class QRectF;

/// Writes `text` into `area`, wrapped, from the top, in the first of `fonts` in which all of it fits. Where it fits in
/// none, the last font shows what it can and ends in "…". Nothing is written outside the area. Each paragraph stands at
/// the edge at which its own direction begins, `fallback` where it has no letter.
void writeFittedText(PrintedText& paper, const QRectF& area, const QString& text, const std::vector<QFont>& fonts,
                     Qt::LayoutDirection fallback);
