// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QHash>
#include <QPointF>
#include <QString>
#include <QStringList>

/// The text of a printed page, for searching, selecting and reading aloud: invisible signs at the places where the page
/// shows them. The page's own fonts cannot provide it, because in them a glyph stands for one character of the Basic
/// Multilingual Plane only: ligatures, marks, shared ideographs and emoji would be lost.
class PdfTextLayer {
public:
    /// One or several characters that are shown as one.
    struct Sign {
        QString text;     ///< in visual order, from left to right
        QPointF baseline; ///< its left end, in points from the sheet's lower left corner
        double width = 0; ///< in points
        double size = 0;  ///< of its font, in points
    };

    void add(const Sign& sign);

    /// Returns `document`, a PDF file of one page, with the layer added. A document whose structure is not recognised
    /// is returned unchanged.
    QByteArray addedTo(const QByteArray& document) const;

private:
    QStringList m_texts;                 ///< each once, in the order of their codes
    QHash<QString, qsizetype> m_indexes; ///< index in m_texts
    QByteArray m_content;                ///< the page content that writes the signs
};
