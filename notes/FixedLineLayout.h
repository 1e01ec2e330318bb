// SPDX-License-Identifier: MIT
#pragma once

#include <QPlainTextDocumentLayout>

/// Lays out a plain-text document without wrapping, every line of it equally high whatever fonts it needs, its baseline
/// where the table's cells have theirs. A right-to-left line stands at the right edge of the view.
class FixedLineLayout : public QPlainTextDocumentLayout {
    Q_OBJECT

public:
    FixedLineLayout(QTextDocument& document, double lineHeight);

    double lineHeight() const { return m_lineHeight; }
    void setViewWidth(double width) { m_viewWidth = width; }

    QRectF blockBoundingRect(const QTextBlock& block) const override;

private:
    double m_lineHeight;
    double m_viewWidth = 0.0;
};
