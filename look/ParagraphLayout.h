// SPDX-License-Identifier: MIT
#pragma once

#include <QPlainTextDocumentLayout>

class QWidget;

/// Lays out wrapped plain text so that each paragraph is written in its own direction, from the edge at which that
/// begins. One without a letter follows the widget that shows it.
class ParagraphLayout : public QPlainTextDocumentLayout {
    Q_OBJECT

public:
    ParagraphLayout(QTextDocument& document, const QWidget& reader);

    QRectF blockBoundingRect(const QTextBlock& block) const override;

    /// Without a width: wrapped text has no more than it is given, so there is nothing to scroll to.
    QSizeF documentSize() const override;

private:
    const QWidget& m_reader;
};
