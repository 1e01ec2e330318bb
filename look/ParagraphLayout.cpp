// SPDX-License-Identifier: MIT
#include "look/ParagraphLayout.h"

#include "look/Paragraphs.h"

#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>
#include <QWidget>

namespace {

/// Lays out `paragraph` again with `option`, keeping the width and left edge of its lines.
void layOutAgain(QTextLayout& paragraph, const QTextOption& option)
{
    const qreal width = paragraph.lineAt(0).width();
    const qreal left = paragraph.lineAt(0).x();
    qreal top = 0;
    paragraph.setTextOption(option);
    paragraph.beginLayout();
    for (QTextLine line = paragraph.createLine(); line.isValid(); line = paragraph.createLine()) {
        line.setLeadingIncluded(true);
        line.setLineWidth(width);
        line.setPosition({left, top});
        top += line.height();
    }
    paragraph.endLayout();
}

} // namespace

ParagraphLayout::ParagraphLayout(QTextDocument& document, const QWidget& reader)
    : QPlainTextDocumentLayout(&document), m_reader(reader)
{
}

QRectF ParagraphLayout::blockBoundingRect(const QTextBlock& block) const
{
    const QRectF bounds = QPlainTextDocumentLayout::blockBoundingRect(block); // lays it out if necessary
    QTextLayout* const paragraph = block.isValid() ? block.layout() : nullptr;
    if (!paragraph || paragraph->lineCount() == 0) {
        return bounds;
    }
    const QTextOption option = optionOf(block.text(), m_reader.layoutDirection());
    if (option.textDirection() == Qt::RightToLeft && paragraph->textOption().textDirection() != Qt::RightToLeft) {
        layOutAgain(*paragraph, option);
    }
    return bounds;
}

QSizeF ParagraphLayout::documentSize() const
{
    return {0, QPlainTextDocumentLayout::documentSize().height()};
}
