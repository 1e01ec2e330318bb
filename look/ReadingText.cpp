// SPDX-License-Identifier: MIT
#include "look/ReadingText.h"

#include "look/ParagraphLayout.h"

#include <QAccessibleWidget>
#include <QEvent>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

namespace {

constexpr int preferredLetters = 28; ///< in a line
constexpr int around = 1;            ///< points needed in addition to show all lines
constexpr QTextOption::WrapMode wrapping = QTextOption::WrapAtWordBoundaryOrAnywhere;

/// Appears as a label, because assistive technologies read out a dialog's labels when it opens.
class ReadingTextAccessible : public QAccessibleWidget {
public:
    explicit ReadingTextAccessible(ReadingText& text) : QAccessibleWidget(&text, QAccessible::StaticText) {}

    int childCount() const override { return 0; }
    QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    QString text(QAccessible::Text kind) const override
    {
        const auto* shown = static_cast<const ReadingText*>(widget());
        return kind == QAccessible::Name ? shown->toPlainText() : QAccessibleWidget::text(kind);
    }
};

QAccessibleInterface* makeReadingTextInterface(const QString& /*className*/, QObject* object)
{
    auto* const text = qobject_cast<ReadingText*>(object);
    return text ? new ReadingTextAccessible(*text) : nullptr; // the accessibility cache owns it
}

/// The height of a paragraph, measured no further than `enough`.
double heightOf(const QString& paragraph, const QFont& font, int width, double enough)
{
    QTextOption option;
    option.setWrapMode(wrapping);
    QTextLayout layout(paragraph, font);
    layout.setTextOption(option);
    double height = 0;
    layout.beginLayout();
    while (height < enough) {
        QTextLine line = layout.createLine();
        if (!line.isValid()) {
            break;
        }
        line.setLineWidth(width);
        height += line.height();
    }
    layout.endLayout();
    return height;
}

} // namespace

ReadingText::ReadingText(int longest, QWidget* parent) : QPlainTextEdit(parent), m_longest(longest)
{
    static const bool isSpoken = (QAccessible::installFactory(makeReadingTextInterface), true);
    Q_UNUSED(isSpoken)
    setReadOnly(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse);
    setFocusPolicy(Qt::ClickFocus); // a click is enough for the copy key to work
    setFrameShape(NoFrame);
    setWordWrapMode(wrapping);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    document()->setDocumentLayout(new ParagraphLayout(*document(), *this)); // the document owns it
    document()->setDocumentMargin(0);
    setBackgroundVisible(false);
    viewport()->setAutoFillBackground(false);
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void ReadingText::setText(const QString& text)
{
    setPlainText(text);
    setVisible(!text.isEmpty());
    showScrollBarIfNeeded();
    updateGeometry();
}

/// A scroll bar that came while there was less room would go on taking the width without which the text does not fit.
void ReadingText::showScrollBarIfNeeded()
{
    const bool fits = textHeight(width(), height() + 1) + around <= height();
    setVerticalScrollBarPolicy(fits ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAsNeeded);
}

bool ReadingText::isCut() const
{
    return verticalScrollBar()->maximum() > 0;
}

/// The height of the text in lines of `width` points, measured no further than `enough`.
double ReadingText::textHeight(int width, double enough) const
{
    ensurePolished(); // the font comes from the style rules
    double height = 0;
    for (QTextBlock block = document()->begin(); block.isValid() && height < enough; block = block.next()) {
        height += heightOf(block.text(), font(), width, enough - height);
    }
    return height;
}

int ReadingText::heightForWidth(int width) const
{
    return std::min(static_cast<int>(std::ceil(textHeight(width, m_longest))) + around, m_longest);
}

QSize ReadingText::sizeHint() const
{
    ensurePolished();
    const int width = fontMetrics().averageCharWidth() * preferredLetters;
    return {width, heightForWidth(width)};
}

QSize ReadingText::minimumSizeHint() const
{
    return {fontMetrics().height(), fontMetrics().height()};
}

void ReadingText::resizeEvent(QResizeEvent* event)
{
    showScrollBarIfNeeded();
    QPlainTextEdit::resizeEvent(event);
}

void ReadingText::changeEvent(QEvent* event)
{
    QPlainTextEdit::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        showScrollBarIfNeeded();
        updateGeometry();
    }
}
