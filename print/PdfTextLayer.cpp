// SPDX-License-Identifier: MIT
#include "print/PdfTextLayer.h"

#include "print/PdfUpdate.h"

#include <algorithm>

namespace {

constexpr qsizetype signsPerFont = 255; ///< all one-byte codes but 0
constexpr qsizetype entriesPerBlock = 100;

// The fonts have a single, invisible shape. Each sign stretches it to its own width.
constexpr double unitsPerSize = 1000;
constexpr double shapeWidth = 500;

QByteArray number(double value)
{
    return QByteArray::number(value, 'f', 3);
}

QByteArray hexadecimal(qsizetype value, qsizetype digits)
{
    return QByteArray::number(value, 16).rightJustified(digits, '0');
}

QByteArray codeOf(qsizetype index)
{
    return '<' + hexadecimal(index % signsPerFont + 1, 2) + '>';
}

QByteArray fontName(qsizetype index)
{
    return "/Signs" + QByteArray::number(index / signsPerFont);
}

/// The Unicode texts of a font's codes.
QByteArray unicodeMap(const QStringList& texts)
{
    QByteArray map = "/CIDInit /ProcSet findresource begin\n12 dict begin\nbegincmap\n/CMapName /Signs def\n"
                     "/CMapType 2 def\n1 begincodespacerange\n<00> <FF>\nendcodespacerange\n";
    for (qsizetype first = 0; first < texts.size(); first += entriesPerBlock) {
        const qsizetype end = std::min(first + entriesPerBlock, texts.size());
        map += QByteArray::number(end - first) + " beginbfchar\n";
        for (qsizetype index = first; index < end; ++index) {
            map += codeOf(index) + " <";
            for (const QChar unit : texts.at(index)) {
                map += hexadecimal(unit.unicode(), 4);
            }
            map += ">\n";
        }
        map += "endbfchar\n";
    }
    return map + "endcmap\nCMapName currentdict /CMap defineresource pop\nend\nend";
}

/// Writes a font for the signs `texts` and returns its object.
int writeFont(PdfUpdate& file, const QStringList& texts, int shape)
{
    const int map = file.newObject();
    file.writeStream(map, unicodeMap(texts));
    const QByteArray width = QByteArray::number(static_cast<int>(shapeWidth));
    const int font = file.newObject();
    file.write(font, "<< /Type /Font /Subtype /Type3 /FontMatrix [0.001 0 0 0.001 0 0] /FontBBox [0 -250 " + width +
                         " 750] /Resources << >>\n/CharProcs << /s " + PdfUpdate::reference(shape) +
                         " >> /Encoding << /Type /Encoding /Differences [1" + QByteArray(" /s").repeated(texts.size()) +
                         "] >>\n/FirstChar 1 /LastChar " + QByteArray::number(texts.size()) + " /Widths [" +
                         (width + ' ').repeated(texts.size()) + "]\n/ToUnicode " + PdfUpdate::reference(map) + " >>");
    return font;
}

} // namespace

void PdfTextLayer::add(const Sign& sign)
{
    auto known = m_indexes.constFind(sign.text);
    if (known == m_indexes.constEnd()) {
        known = m_indexes.insert(sign.text, m_texts.size());
        m_texts.append(sign.text);
    }
    const double stretch = 100 * sign.width / (sign.size * shapeWidth / unitsPerSize);
    m_content += fontName(*known) + ' ' + number(sign.size) + " Tf " + number(stretch) + " Tz 1 0 0 1 " +
                 number(sign.baseline.x()) + ' ' + number(sign.baseline.y()) + " Tm " + codeOf(*known) + " Tj\n";
}

QByteArray PdfTextLayer::addedTo(const QByteArray& document) const
{
    PdfUpdate file(document);
    const auto follow = [](const QByteArray& from, const char* key) {
        return PdfUpdate::numberOf(from, key).value_or(0);
    };
    const QByteArray catalog = file.dictionary(follow(file.trailer(), "Root"));
    const int pageObject = follow(file.dictionary(follow(catalog, "Pages")), "Kids");
    QByteArray page = file.dictionary(pageObject);
    const int resourcesObject = follow(page, "Resources");
    QByteArray resources = file.dictionary(resourcesObject);
    const QByteArray content = PdfUpdate::reference(follow(page, "Contents"));
    const QByteArray fontsBegin = "/Font <<";
    if (!page.contains("/Contents " + content) || !resources.contains(fontsBegin)) {
        return document;
    }

    const int shape = file.newObject();
    file.writeStream(shape, QByteArray::number(static_cast<int>(shapeWidth)) + " 0 d0");
    QByteArray fonts = fontsBegin;
    for (qsizetype first = 0; first < m_texts.size(); first += signsPerFont) {
        const int font = writeFont(file, m_texts.mid(first, signsPerFont), shape);
        fonts += '\n' + fontName(first) + ' ' + PdfUpdate::reference(font);
    }
    const int layer = file.newObject();
    file.writeStream(layer, "q BT\n" + m_content + "ET Q\n");
    file.write(resourcesObject, resources.replace(fontsBegin, fonts));
    file.write(pageObject,
               page.replace("/Contents " + content, "/Contents [" + PdfUpdate::reference(layer) + ' ' + content + ']'));
    return file.finished();
}
