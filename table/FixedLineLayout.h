// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractTextDocumentLayout>

class QTextLayout;
class QTextLine;

/// Lays out a plain-text document without wrapping, every line of it equally high whatever fonts it needs, its baseline
/// where the table's cells have theirs. A right-to-left line stands at the right edge of the view.
///
/// The view begins at a line that is set here: it is at 0 in the layout's coordinates, the lines above it are above 0.
/// So nothing is left for the control to scroll up or down, and it cannot move the text away from where it belongs.
/// Only lines in view are shaped: a text of any number of lines is as quick to show as a short one.
class FixedLineLayout : public QAbstractTextDocumentLayout {
    Q_OBJECT
    Q_PROPERTY(int cursorWidth MEMBER m_caretWidth) ///< where a text control keeps it, by this name

public:
    FixedLineLayout(QTextDocument& document, double lineHeight);

    double lineHeight() const { return m_lineHeight; }

    void setFirstLine(int line);
    void setViewSize(const QSizeF& size);

    void draw(QPainter* painter, const PaintContext& context) override;
    int hitTest(const QPointF& point, Qt::HitTestAccuracy accuracy) const override;
    int pageCount() const override { return 1; }

    /// As wide as the widest line in view, and without height: see above.
    QSizeF documentSize() const override;
    QRectF frameBoundingRect(QTextFrame* frame) const override;
    QRectF blockBoundingRect(const QTextBlock& block) const override;

protected:
    void documentChanged(int from, int charsRemoved, int charsAdded) override;

private:
    QTextBlock blockAt(double y) const;
    QTextLine lineOf(const QTextBlock& block) const;
    void drawBlock(QPainter& painter, const QTextBlock& block, const PaintContext& context) const;

    double m_lineHeight;
    QSizeF m_viewSize;
    int m_firstLine = 0;
    int m_caretWidth = 1;
};
