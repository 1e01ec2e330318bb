// SPDX-License-Identifier: MIT
#include "calendar/FittedText.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QTextLayout>

#include <algorithm>

namespace {

/// More than a sheet of paper holds: what is longer need not be laid out to know that it does not fit.
constexpr qsizetype mostCharacters = 8000;

/// `text` with its line breaks as a layout understands them.
QString withLineSeparators(const QString& text)
{
    QString shown = text.left(mostCharacters);
    shown.replace(QStringLiteral("\r\n"), QString(QChar::LineSeparator));
    for (const QChar lineBreak : {QChar(u'\r'), QChar(u'\n'), QChar(QChar::ParagraphSeparator)}) {
        shown.replace(lineBreak, QChar::LineSeparator);
    }
    return shown;
}

/// Lays out whole lines from the top of `area` down; true when no text is left over.
bool layOut(QTextLayout& layout, const QRectF& area)
{
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    bool complete = false;
    qreal y = 0;
    layout.beginLayout();
    for (;;) {
        QTextLine line = layout.createLine();
        if (!line.isValid()) {
            complete = true;
            break;
        }
        line.setLineWidth(area.width());
        line.setPosition({0, y});
        y += line.height();
        if (y > area.height()) {
            break;
        }
    }
    layout.endLayout();
    return complete;
}

/// The text of `line` with a sign that more follows.
QString cutLine(const QTextLine& line, const QTextLayout& layout, const QFontMetricsF& metrics)
{
    QString text = layout.text().mid(line.textStart(), line.textLength());
    text.remove(QChar::LineSeparator);
    return metrics.elidedText(text.trimmed() + u'…', Qt::ElideRight, line.width());
}

void drawCut(QPainter& painter, const QRectF& area, const QTextLayout& layout)
{
    const int whole = layout.lineCount() - 1; // the last one has no room
    for (int index = 0; index < whole - 1; ++index) {
        layout.lineAt(index).draw(&painter, area.topLeft());
    }
    if (whole > 0) {
        const QTextLine last = layout.lineAt(whole - 1);
        const QFontMetricsF metrics(layout.font(), painter.device());
        QTextLayout sign(cutLine(last, layout, metrics), layout.font(), painter.device());
        layOut(sign, QRectF(0, 0, area.width(), area.height()));
        sign.lineAt(0).draw(&painter, area.topLeft() + QPointF(0, last.y()));
    }
}

} // namespace

void drawFittedText(QPainter& painter, const QRectF& area, const QString& text, const std::vector<QFont>& fonts)
{
    const QString shown = withLineSeparators(text);
    for (const QFont& font : fonts) {
        QTextLayout layout(shown, font, painter.device());
        if (layOut(layout, area)) {
            layout.draw(&painter, area.topLeft());
            return;
        }
        if (&font == &fonts.back()) {
            drawCut(painter, area, layout);
        }
    }
}
