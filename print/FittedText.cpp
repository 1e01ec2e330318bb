// SPDX-License-Identifier: MIT
#include "print/FittedText.h"

#include "look/Paragraphs.h"
#include "print/PrintedText.h"
#include "text/TextCutting.h"
#include "text/TextLines.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QTextLayout>

#include <memory>

namespace {

/// UTF-16 units, more than fit in a cell on paper: a longer text need not be laid out to know that.
constexpr qsizetype mostUnits = 8000;

/// Blank lines at the end show nothing, so they need neither room nor an ellipsis.
QStringView withoutBlankEnd(QStringView text)
{
    while (!text.isEmpty() && text.back().isSpace()) {
        text.chop(1);
    }
    return text;
}

/// The whole lines of a text for which an area has room, from the top.
struct FittedLines {
    struct Line {
        const QTextLayout& paragraph;
        QTextLine line;
    };

    std::vector<std::unique_ptr<QTextLayout>> paragraphs;
    std::vector<Line> lines;
    bool complete = true; ///< all of the text fits
};

/// Adds the lines of `paragraph` that fit into `area` from `top` on. Returns where the next line begins.
qreal addLines(FittedLines& fitted, QTextLayout& paragraph, const QRectF& area, qreal top)
{
    paragraph.beginLayout();
    for (QTextLine line = paragraph.createLine(); line.isValid(); line = paragraph.createLine()) {
        line.setLineWidth(area.width());
        line.setPosition({0, top});
        if (top + line.height() > area.height()) {
            fitted.complete = false;
            break;
        }
        top += line.height();
        fitted.lines.push_back({paragraph, line});
    }
    paragraph.endLayout();
    return top;
}

FittedLines fittedLines(const QString& text, const QFont& font, QPaintDevice* device, const QRectF& area,
                        Qt::LayoutDirection fallback)
{
    FittedLines fitted;
    qreal top = 0;
    for (const QString& each : text.split(u'\n')) {
        fitted.paragraphs.push_back(std::make_unique<QTextLayout>(each, font, device));
        QTextLayout& paragraph = *fitted.paragraphs.back();
        paragraph.setTextOption(optionOf(each, fallback));
        top = addLines(fitted, paragraph, area, top);
        if (!fitted.complete) {
            break;
        }
    }
    return fitted;
}

void write(PrintedText& paper, const FittedLines& fitted, std::size_t count, QPointF origin)
{
    for (std::size_t index = 0; index < count; ++index) {
        const auto& [paragraph, line] = fitted.lines.at(index);
        paper.write(paragraph, line, origin);
    }
}

/// Writes the last line with an ellipsis.
void writeCut(PrintedText& paper, const FittedLines::Line& last, const QRectF& area)
{
    const auto& [paragraph, line] = last;
    const QString text = paragraph.text().mid(line.textStart(), line.textLength()).trimmed();
    const QFontMetricsF metrics(paragraph.font(), paper.painter().device());
    QTextLayout sign(metrics.elidedText(text + u'…', Qt::ElideRight, line.width()), paragraph.font(),
                     paper.painter().device());
    sign.setTextOption(paragraph.textOption());
    FittedLines alone;
    addLines(alone, sign, QRectF(area.topLeft(), QSizeF(area.width(), 2 * line.height())), 0);
    write(paper, alone, std::min<std::size_t>(alone.lines.size(), 1), area.topLeft() + QPointF(0, line.y()));
}

} // namespace

void writeFittedText(PrintedText& paper, const QRectF& area, const QString& text, const std::vector<QFont>& fonts,
                     Qt::LayoutDirection fallback)
{
    const QStringView whole = withoutBlankEnd(text);
    const QStringView beginning = beginningOf(whole, mostUnits);
    const QString shown = withLineFeeds(beginning.toString());
    for (const QFont& font : fonts) {
        const FittedLines fitted = fittedLines(shown, font, paper.painter().device(), area, fallback);
        const bool complete = fitted.complete && beginning.size() == whole.size();
        if (complete || &font == &fonts.back()) {
            const std::size_t count = fitted.lines.size();
            const bool cut = !complete && count > 0;
            write(paper, fitted, cut ? count - 1 : count, area.topLeft());
            if (cut) {
                writeCut(paper, fitted.lines.back(), area);
            }
            return;
        }
    }
}
