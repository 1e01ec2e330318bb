// SPDX-License-Identifier: MIT
#include "print/PrintedText.h"

#include <QGlyphRun>
#include <QPainter>
#include <QPainterPath>
#include <QTextBoundaryFinder>
#include <QTextLayout>

#include <algorithm>
#include <cmath>
#include <optional>
#include <ranges>
#include <span>
#include <vector>

namespace {

constexpr double leastSignWidth = 0.1; ///< points; every sign takes some room

/// The place of the glyphs that show some characters of a line.
struct Shown {
    QString text;
    QPointF baseline; ///< at the left edge
    double right = 0;
    std::pair<double, quint32> firstGlyph; ///< its x position and its index
    bool isRightToLeft = false;
};

QString reversed(const QString& text)
{
    QList<uint> characters = text.toUcs4();
    std::ranges::reverse(characters);
    return QString::fromUcs4(reinterpret_cast<const char32_t*>(characters.constData()), characters.size());
}

bool hasRightToLeftLetter(QStringView text)
{
    const QList<uint> characters = text.toUcs4();
    return std::ranges::any_of(characters, [](char32_t character) {
        const QChar::Direction direction = QChar::direction(character);
        return direction == QChar::DirR || direction == QChar::DirAL;
    });
}

/// nullopt when the characters have no glyphs.
std::optional<Shown> shownOf(const QTextLine& line, const QString& text, qsizetype from, qsizetype to)
{
    const QList<QGlyphRun> runs = line.glyphRuns(static_cast<int>(from), static_cast<int>(to - from));
    if (runs.isEmpty() || runs.first().glyphIndexes().isEmpty()) {
        return std::nullopt;
    }
    const QGlyphRun& first = runs.first();
    Shown shown{.text = text.mid(from, to - from),
                .baseline = first.positions().first(),
                .right = first.positions().first().x(),
                .firstGlyph = {first.positions().first().x(), first.glyphIndexes().first()},
                .isRightToLeft = first.isRightToLeft()};
    for (const QGlyphRun& run : runs) {
        const QList<quint32> glyphs = run.glyphIndexes();
        const QList<QPointF> places = run.positions();
        const QList<QPointF> advances = run.rawFont().advancesForGlyphIndexes(glyphs, QRawFont::SeparateAdvances);
        for (qsizetype i = 0; i < glyphs.size(); ++i) {
            shown.baseline.setX(std::min(shown.baseline.x(), places.at(i).x()));
            shown.right = std::max(shown.right, places.at(i).x() + advances.at(i).x());
        }
    }
    return shown;
}

/// The signs of `line`, in the order of its characters. Ligatures are one sign.
std::vector<Shown> signsOf(const QTextLine& line, const QString& text)
{
    std::vector<Shown> signs;
    const qsizetype start = line.textStart();
    QTextBoundaryFinder characters(QTextBoundaryFinder::Grapheme, QStringView(text).mid(start, line.textLength()));
    for (qsizetype from = 0, to = characters.toNextBoundary(); to > 0; from = to, to = characters.toNextBoundary()) {
        std::optional<Shown> shown = shownOf(line, text, start + from, start + to);
        if (shown && !signs.empty() && shown->firstGlyph == signs.back().firstGlyph) {
            signs.back().text += shown->text;
        } else if (shown) {
            signs.push_back(std::move(*shown));
        }
    }
    return signs;
}

/// Whether the glyphs of `font` are pictures, as for coloured emoji. They must not be asked for outlines, after which
/// Qt 6.4 no longer shows anything in such a font.
bool hasPictures(const QRawFont& font)
{
    return !font.fontTable("CBLC").isEmpty();
}

/// The picture of a glyph; null for a blank one.
QImage pictureOf(const QRawFont& font, quint32 glyph)
{
    const double width = font.advancesForGlyphIndexes({glyph}).first().x();
    QImage picture(static_cast<int>(std::ceil(width)), static_cast<int>(std::ceil(font.ascent() + font.descent())),
                   QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QGlyphRun run;
    run.setRawFont(font);
    run.setGlyphIndexes({glyph});
    run.setPositions({QPointF(0, font.ascent())});
    QPainter(&picture).drawGlyphRun({}, run);
    const std::span pixels(picture.constBits(), static_cast<std::size_t>(picture.sizeInBytes()));
    return std::ranges::all_of(pixels, [](uchar value) { return value == 0; }) ? QImage() : picture;
}

} // namespace

PrintedText::PrintedText(QPainter& painter) : m_painter(painter)
{
    m_painter.setRenderHint(QPainter::LosslessImageRendering);
}

void PrintedText::write(const QTextLayout& layout, const QTextLine& line, QPointF origin)
{
    paint(line, origin);
    describe(layout, line, origin);
}

void PrintedText::paint(const QTextLine& line, QPointF origin)
{
    QPainterPath outlines;
    outlines.setFillRule(Qt::WindingFill);
    for (const QGlyphRun& run : line.glyphRuns()) {
        const QList<quint32> glyphs = run.glyphIndexes();
        const QList<QPointF> places = run.positions();
        const bool asPictures = hasPictures(run.rawFont());
        for (qsizetype i = 0; i < glyphs.size(); ++i) {
            const QPointF baseline = origin + places.at(i);
            if (asPictures) {
                paintPicture(run.rawFont(), glyphs.at(i), baseline);
            } else {
                outlines.addPath(run.rawFont().pathForGlyph(glyphs.at(i)).translated(baseline));
            }
        }
    }
    m_painter.fillPath(outlines, m_painter.pen().color());
}

void PrintedText::paintPicture(const QRawFont& font, quint32 glyph, QPointF baseline)
{
    const std::pair key(font, glyph);
    if (!m_pictures.contains(key)) {
        m_pictures.insert(key, pictureOf(font, glyph));
    }
    if (const QImage& picture = m_pictures[key]; !picture.isNull()) {
        m_painter.drawImage(baseline - QPointF(0, font.ascent()), picture);
    }
}

void PrintedText::describe(const QTextLayout& layout, const QTextLine& line, QPointF origin)
{
    const double point = m_painter.device()->logicalDpiX() / pointsPerInch;
    const double bottom = m_painter.device()->height();
    const bool hasLetters = hasRightToLeftLetter(QStringView(layout.text()).mid(line.textStart(), line.textLength()));
    std::vector<Shown> signs = signsOf(line, layout.text());
    std::ranges::stable_sort(signs, {}, [](const Shown& sign) { return sign.baseline.x(); });
    for (const Shown& sign : signs) {
        const QPointF place = origin + sign.baseline;
        m_layer.add({.text = sign.isRightToLeft && hasLetters ? reversed(sign.text) : sign.text,
                     .baseline = QPointF(place.x(), bottom - place.y()) / point,
                     .width = std::max((sign.right - sign.baseline.x()) / point, leastSignWidth),
                     .size = layout.font().pixelSize() / point});
    }
}
