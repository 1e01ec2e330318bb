// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QHash>
#include <QPointF>
#include <QString>
#include <QStringList>

/// The text of a printed page, for those who search, select or listen: invisible signs that stand where the page shows
/// them. A document's own fonts cannot tell it, as a glyph in them stands for one character of the first plane only:
/// joined letters, marks, shared ideographs and emoji would be lost.
class PdfTextLayer {
public:
    /// One or several characters that are shown as one.
    struct Sign {
        QString text;     ///< in the order in which it is seen from left to right
        QPointF baseline; ///< at its left edge, in points from the sheet's lower left corner
        double width = 0; ///< in points
        double size = 0;  ///< of its font, in points
    };

    void add(const Sign& sign);

    /// `document`, a PDF file of one page, with the layer. A document whose structure is not understood is returned as
    /// it is.
    QByteArray addedTo(const QByteArray& document) const;

private:
    QStringList m_texts;                 ///< each once, in the order of their codes
    QHash<QString, qsizetype> m_indexes; ///< in that list
    QByteArray m_content;                ///< what writes the signs
};
