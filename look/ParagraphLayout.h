// SPDX-License-Identifier: MIT
#pragma once

#include <QPlainTextDocumentLayout>

class QWidget;

/// Lays out wrapped plain text with each paragraph in its own direction, aligned to the edge where that direction
/// begins. A paragraph without a letter follows the direction of the widget that shows it.
class ParagraphLayout : public QPlainTextDocumentLayout {
    Q_OBJECT

public:
    ParagraphLayout(QTextDocument& document, const QWidget& reader);

    QRectF blockBoundingRect(const QTextBlock& block) const override;

    /// Without a width: wrapped text fits the width it is given, so there is nothing to scroll to.
    QSizeF documentSize() const override;

private:
    const QWidget& m_reader;
};
