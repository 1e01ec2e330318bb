// SPDX-License-Identifier: MIT
#include "notes/FixedLineLayout.h"

#include "notes/CellLines.h"
#include "notes/TableMetrics.h"

#include <QGuiApplication>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>

#include <algorithm>

FixedLineLayout::FixedLineLayout(QTextDocument& document, double lineHeight)
    : QPlainTextDocumentLayout(&document), m_lineHeight(lineHeight)
{
}

QRectF FixedLineLayout::blockBoundingRect(const QTextBlock& block) const
{
    const QRectF natural = QPlainTextDocumentLayout::blockBoundingRect(block); // shapes the text where that is due
    QTextLayout* const layout = block.isValid() ? block.layout() : nullptr;
    if (!layout || layout->lineCount() == 0) {
        return natural;
    }
    QTextLine line = layout->lineAt(0);
    const double width = line.naturalTextWidth();
    const QString text = block.text();
    const bool rightToLeft = CellLines::direction(text, QGuiApplication::layoutDirection()) == Qt::RightToLeft;
    const double left = rightToLeft ? std::max(0.0, m_viewWidth - width) : 0.0;
    line.setPosition({left, baselineInLine(document()->defaultFont(), m_lineHeight) - line.ascent()});
    return {0.0, 0.0, std::max(natural.width(), left + width), m_lineHeight};
}
