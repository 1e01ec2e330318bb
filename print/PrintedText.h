// SPDX-License-Identifier: MIT
#pragma once

#include "print/PdfTextLayer.h"

#include <QHash>
#include <QImage>
#include <QRawFont>

#include <utility>

class QPainter;
class QTextLayout;
class QTextLine;

inline constexpr double pointsPerInch = 72;

/// Writes text on the page of a PDF document as a screen would show it: letters as outlines, coloured signs as
/// pictures. Its layer keeps the text itself.
class PrintedText {
public:
    /// `painter` must cover the whole sheet.
    explicit PrintedText(QPainter& painter);

    QPainter& painter() const { return m_painter; }
    const PdfTextLayer& layer() const { return m_layer; }

    /// Writes `line` of `layout`, placing the layout's origin at `origin`, in the colour of the painter's pen.
    void write(const QTextLayout& layout, const QTextLine& line, QPointF origin);

private:
    void paint(const QTextLine& line, QPointF origin);
    void paintPicture(const QRawFont& font, quint32 glyph, QPointF baseline);
    void describe(const QTextLayout& layout, const QTextLine& line, QPointF origin);

    QPainter& m_painter;
    PdfTextLayer m_layer;
    QHash<std::pair<QRawFont, quint32>, QImage> m_pictures; ///< so that each is embedded in the document only once
};
