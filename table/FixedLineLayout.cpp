// SPDX-License-Identifier: MIT
#include "table/FixedLineLayout.h"

#include "look/TableMetrics.h"
#include "text/WritingDirection.h"

#include <QGuiApplication>
#include <QPainter>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>

#include <algorithm>
#include <cmath>
#include <limits>

FixedLineLayout::FixedLineLayout(QTextDocument& document, double lineHeight)
    : QAbstractTextDocumentLayout(&document), m_lineHeight(lineHeight)
{
}

void FixedLineLayout::setFirstLine(int line)
{
    if (line != m_firstLine) {
        m_firstLine = line;
        Q_EMIT documentSizeChanged(documentSize());
        Q_EMIT update();
    }
}

void FixedLineLayout::setViewSize(const QSizeF& size)
{
    m_viewSize = size;
}

/// The block whose line is at `y`; the first or the last one for a point above or below all lines.
QTextBlock FixedLineLayout::blockAt(double y) const
{
    const int line = m_firstLine + static_cast<int>(std::floor(y / m_lineHeight));
    return document()->findBlockByNumber(std::clamp(line, 0, document()->blockCount() - 1));
}

/// The single line of `block`, laid out if necessary, at its place within the block.
QTextLine FixedLineLayout::lineOf(const QTextBlock& block) const
{
    QTextLayout& layout = *block.layout();
    if (layout.lineCount() == 0) {
        layout.setTextOption(document()->defaultTextOption());
        layout.beginLayout();
        layout.createLine().setLineWidth(std::numeric_limits<int>::max()); // never wrapped
        layout.endLayout();
    }
    QTextLine line = layout.lineAt(0);
    const bool rightToLeft = writingDirection(block.text(), QGuiApplication::layoutDirection()) == Qt::RightToLeft;
    const double left = rightToLeft ? std::max(0.0, m_viewSize.width() - line.naturalTextWidth()) : 0.0;
    line.setPosition({left, baselineInLine(document()->defaultFont(), m_lineHeight) - line.ascent()});
    return line;
}

QRectF FixedLineLayout::blockBoundingRect(const QTextBlock& block) const
{
    if (!block.isValid()) {
        return {};
    }
    const QTextLine line = lineOf(block);
    return {0.0, (block.blockNumber() - m_firstLine) * m_lineHeight, line.x() + line.naturalTextWidth(), m_lineHeight};
}

QRectF FixedLineLayout::frameBoundingRect(QTextFrame* /*frame*/) const
{
    return {0.0, -m_firstLine * m_lineHeight, std::max(documentSize().width(), m_viewSize.width()),
            document()->blockCount() * m_lineHeight};
}

QSizeF FixedLineLayout::documentSize() const
{
    double width = 0.0;
    const QTextBlock end = blockAt(m_viewSize.height()).next();
    for (QTextBlock block = blockAt(0.0); block != end; block = block.next()) {
        width = std::max(width, blockBoundingRect(block).right() + m_caretWidth);
    }
    return {width, 0.0};
}

int FixedLineLayout::hitTest(const QPointF& point, Qt::HitTestAccuracy accuracy) const
{
    const QTextBlock block = blockAt(point.y());
    if (accuracy == Qt::ExactHit && !blockBoundingRect(block).contains(point)) {
        return -1;
    }
    return block.position() + lineOf(block).xToCursor(point.x());
}

void FixedLineLayout::documentChanged(int from, int /*charsRemoved*/, int charsAdded)
{
    const QTextBlock end = document()->findBlock(from + charsAdded).next();
    for (QTextBlock block = document()->findBlock(from); block.isValid() && block != end; block = block.next()) {
        block.clearLayout();
    }
    Q_EMIT documentSizeChanged(documentSize());
    Q_EMIT update();
}

/// Includes the lines above and below the exposed part, since a glyph may be higher than its line.
void FixedLineLayout::draw(QPainter* painter, const PaintContext& context)
{
    const QRectF clip = context.clip.isValid() ? context.clip : QRectF(QPointF(), m_viewSize);
    const QTextBlock end = blockAt(clip.bottom() + m_lineHeight).next();
    for (QTextBlock block = blockAt(clip.top() - m_lineHeight); block != end; block = block.next()) {
        drawBlock(*painter, block, context);
    }
}

void FixedLineLayout::drawBlock(QPainter& painter, const QTextBlock& block, const PaintContext& context) const
{
    QList<QTextLayout::FormatRange> selections;
    for (const Selection& selection : context.selections) {
        const int start = selection.cursor.selectionStart() - block.position();
        const int end = selection.cursor.selectionEnd() - block.position();
        if (start < block.length() && end > 0 && start < end) {
            selections.append({start, end - start, selection.format});
        }
    }
    const QPointF origin = blockBoundingRect(block).topLeft();
    const QTextLayout& layout = *block.layout();
    painter.setPen(context.palette.color(QPalette::Text));
    layout.draw(&painter, origin, selections, context.clip);

    // Positions within a composed text count down from -2.
    const bool composing = context.cursorPosition < -1 && !layout.preeditAreaText().isEmpty();
    const int caret = composing ? layout.preeditAreaPosition() - (context.cursorPosition + 2)
                                : context.cursorPosition - block.position();
    if (composing || (context.cursorPosition >= 0 && caret >= 0 && caret < block.length())) {
        layout.drawCursor(&painter, origin, caret, m_caretWidth);
    }
}
