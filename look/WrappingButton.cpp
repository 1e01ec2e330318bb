// SPDX-License-Identifier: MIT
#include "look/WrappingButton.h"

#include <QStyleOptionButton>
#include <QStylePainter>

#include <algorithm>

namespace {

/// `title` broken into lines of at most `room` points; a longer word has a line of its own.
QStringList linesOf(const QString& title, const QFontMetrics& metrics, int room)
{
    QStringList lines;
    for (const QString& word : title.split(u' ')) {
        const QString longer = lines.isEmpty() ? word : lines.last() + u' ' + word;
        if (!lines.isEmpty() && metrics.size(Qt::TextShowMnemonic, longer).width() <= room) {
            lines.last() = longer;
        } else {
            lines.append(word);
        }
    }
    return lines;
}

} // namespace

WrappingButton::WrappingButton(const QString& title, QWidget* parent) : QPushButton(title, parent)
{
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Minimum);
}

QSize WrappingButton::edges() const
{
    return sizeHint() - fontMetrics().size(Qt::TextShowMnemonic, text());
}

QSize WrappingButton::minimumSizeHint() const
{
    const QString narrow = linesOf(text(), fontMetrics(), 0).join(u'\n');
    return {fontMetrics().size(Qt::TextShowMnemonic, narrow).width() + edges().width(), sizeHint().height()};
}

int WrappingButton::heightForWidth(int width) const
{
    const qsizetype lines = linesOf(text(), fontMetrics(), width - edges().width()).size();
    return sizeHint().height() + static_cast<int>(std::max<qsizetype>(lines - 1, 0)) * fontMetrics().lineSpacing();
}

void WrappingButton::paintEvent(QPaintEvent*)
{
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    option.text = linesOf(text(), fontMetrics(), width() - edges().width()).join(u'\n');
    painter.drawControl(QStyle::CE_PushButton, option);
}
