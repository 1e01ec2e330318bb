// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractTextDocumentLayout>

class QTextLayout;
class QTextLine;

/// Lays out a plain-text document without wrapping. Every line is equally high, whatever fonts it needs, with its
/// baseline where the table's cells have theirs. Right-to-left lines are aligned to the right edge of the view.
///
/// The first visible line is set here: it is at 0 in the layout's coordinates, and earlier lines are above 0. This
/// leaves the control nothing to scroll vertically, so that it cannot move the text out of place. Only visible lines
/// are laid out, so a text of any number of lines is shown as quickly as a short one.
class FixedLineLayout : public QAbstractTextDocumentLayout {
    Q_OBJECT
    Q_PROPERTY(int cursorWidth MEMBER m_caretWidth) ///< a text control stores it under this name

public:
    FixedLineLayout(QTextDocument& document, double lineHeight);

    double lineHeight() const { return m_lineHeight; }

    void setFirstLine(int line);
    void setViewSize(const QSizeF& size);

    void draw(QPainter* painter, const PaintContext& context) override;
    int hitTest(const QPointF& point, Qt::HitTestAccuracy accuracy) const override;
    int pageCount() const override { return 1; }

    /// As wide as the widest visible line, and without a height, see above.
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
