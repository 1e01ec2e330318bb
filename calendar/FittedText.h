// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QString>

#include <vector>

class QPainter;
class QRectF;

/// Writes `text` into `area`, wrapped, from the top, in the first of `fonts` in which all of it fits. Where it fits in
/// none, the last font shows what it can and ends in "…". Nothing is drawn outside the area. The text is written as
/// it stands, each side starting where its own script starts.
void drawFittedText(QPainter& painter, const QRectF& area, const QString& text, const std::vector<QFont>& fonts);
