// SPDX-License-Identifier: MIT
#pragma once

#include <QPlainTextEdit>

/// A text to be read, selected and copied, plain and never changed: as high as its lines, up to `longest` points; it
/// scrolls when it is longer. Words that are too long for a line go on in the next one. Only the lines that are seen
/// are laid out. It is spoken as a label is.
class ReadingText : public QPlainTextEdit {
    Q_OBJECT

public:
    explicit ReadingText(int longest, QWidget* parent = nullptr);

    void setText(const QString& text);

    /// Whether some of the text is out of sight.
    bool isCut() const;

    /// The height of the text in lines of `width` points, and no more than the longest: what is beyond that is not even
    /// measured.
    int heightForWidth(int width) const override;
    bool hasHeightForWidth() const override { return true; }
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void changeEvent(QEvent* event) override;

private:
    int m_longest;
};
