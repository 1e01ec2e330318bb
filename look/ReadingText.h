// SPDX-License-Identifier: MIT
#pragma once

#include <QPlainTextEdit>

/// A plain, read-only text that can be selected and copied. It is as high as its lines, up to `longest` points, beyond
/// which it scrolls. Words too long for a line are broken. Only visible lines are laid out. Screen readers treat it as
/// a label.
class ReadingText : public QPlainTextEdit {
    Q_OBJECT

public:
    explicit ReadingText(int longest, QWidget* parent = nullptr);

    void setText(const QString& text);

    /// Whether some of the text is out of sight.
    bool isCut() const;

    /// The height of the text in lines of `width` points, at most `longest`; nothing beyond that is measured.
    int heightForWidth(int width) const override;
    bool hasHeightForWidth() const override { return true; }
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    double textHeight(int width, double enough) const;
    void showScrollBarIfNeeded();

    int m_longest;
};
