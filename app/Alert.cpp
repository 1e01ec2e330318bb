// SPDX-License-Identifier: MIT
#include "app/Alert.h"

#include "app/SheetQueue.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyle>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr int margin = 24;
constexpr int gap = 12;
constexpr int iconSize = 48;
constexpr int textWidth = 320;   ///< least width of the two texts
constexpr int longestText = 320; ///< headline and body scroll when they are higher than this together
constexpr int messagePixelSize = 14;
constexpr qsizetype longestHeadline = 400; ///< characters; a longer one is shown without its middle
constexpr qsizetype longestWord = 24;      ///< characters; a longer one goes on in the next line where it must

/// A text as it is shown: carriage returns begin lines, as line feeds do, and the two together begin one.
QString withLineFeeds(QString text)
{
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    return text.replace(QChar::CarriageReturn, QChar::LineFeed);
}

/// Lets a line end within words that are too long for it.
QString withBreakableWords(const QString& text)
{
    constexpr QChar zeroWidthSpace(0x200B);
    QString breakable;
    qsizetype length = 0; // of the word so far
    for (const QChar unit : text) {
        length = unit.isSpace() ? 0 : length + 1;
        if (length > longestWord && !unit.isLowSurrogate() && !unit.isMark()) {
            breakable += zeroWidthSpace;
            length = 1;
        }
        breakable += unit;
    }
    return breakable;
}

QString withoutItsMiddle(const QString& headline)
{
    const qsizetype half = longestHeadline / 2;
    return headline.size() <= longestHeadline ? headline : headline.first(half) + QChar(0x2026) + headline.last(half);
}

QLabel* makeText(QWidget* parent)
{
    auto* label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

/// Holds the texts at their height, up to the longest; beyond that they scroll.
class TextArea : public QScrollArea {
public:
    explicit TextArea(QWidget* parent) : QScrollArea(parent)
    {
        setFrameShape(NoFrame);
        setWidgetResizable(true);
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        setFocusPolicy(Qt::NoFocus);
        viewport()->setAutoFillBackground(false);
    }

    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override { return std::min(widget()->heightForWidth(width), longestText); }
    QSize sizeHint() const override { return {leastWidth(), heightForWidth(leastWidth())}; }
    QSize minimumSizeHint() const override { return {leastWidth(), fontMetrics().height()}; }

private:
    /// What the longest word needs.
    int leastWidth() const { return std::max(widget()->minimumSizeHint().width(), textWidth); }
};

} // namespace

Alert::Alert(QWidget* parent)
    : QDialog(parent), m_icon(new QLabel(this)), m_message(makeText(nullptr)), m_information(makeText(nullptr)),
      m_texts(new TextArea(this)), m_buttonRow(new QHBoxLayout)
{
    setObjectName(QStringLiteral("alert"));
    QFont bold = m_message->font();
    bold.setBold(true);
    bold.setPixelSize(messagePixelSize);
    m_message->setFont(bold);
    m_information->setAlignment(Qt::AlignTop | Qt::AlignLeading);

    auto* page = new QWidget;
    auto* texts = new QVBoxLayout(page);
    texts->setContentsMargins(0, 0, 0, 0);
    texts->setSpacing(gap);
    texts->addWidget(m_message);
    texts->addWidget(m_information, 1);
    m_texts->setWidget(page);
    page->setAutoFillBackground(false);

    auto* content = new QHBoxLayout;
    content->setSpacing(margin - gap / 2);
    content->addWidget(m_icon, 0, Qt::AlignTop);
    content->addWidget(m_texts, 1);

    m_buttonRow->setDirection(QBoxLayout::RightToLeft); // the first button stands outermost
    m_buttonRow->setSpacing(gap);
    m_buttonRow->addStretch(1);

    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(margin, margin, margin, margin);
    all->setSpacing(margin);
    all->addLayout(content);
    all->addLayout(m_buttonRow);
    setAlertStyle(Style::Warning);
}

void Alert::setMessageText(const QString& headline)
{
    m_headline = headline;
    const QString shown = withoutItsMiddle(withLineFeeds(headline));
    m_message->setText(withBreakableWords(shown));
    setWindowTitle(shown.simplified());
    setAccessibleName(shown.simplified());
}

QString Alert::messageText() const
{
    return m_headline;
}

void Alert::setInformativeText(const QString& body)
{
    m_bodyText = body;
    m_information->setText(withBreakableWords(withLineFeeds(body)));
    setAccessibleDescription(withLineFeeds(body));
}

QString Alert::informativeText() const
{
    return m_bodyText;
}

void Alert::setAlertStyle(Style style)
{
    m_style = style;
    const QStyle::StandardPixmap picture = style == Style::Informational ? QStyle::SP_MessageBoxInformation
                                           : style == Style::Critical    ? QStyle::SP_MessageBoxCritical
                                                                         : QStyle::SP_MessageBoxWarning;
    m_icon->setPixmap(QDialog::style()->standardIcon(picture).pixmap(iconSize));
}

QPushButton& Alert::addButton(const QString& title)
{
    auto* button = new QPushButton(title, this);
    const qsizetype index = m_buttons.size();
    m_buttons.append(button);
    m_buttonRow->insertWidget(static_cast<int>(index), button);
    connect(button, &QPushButton::clicked, this, [this, index] { done(firstButtonReturn + static_cast<int>(index)); });
    button->setAutoDefault(false);
    if (index == 0) {
        button->setDefault(true);
        button->setFocus();
    }
    return *button;
}

void Alert::hideButton(QPushButton& button)
{
    QSizePolicy policy = button.sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    button.setSizePolicy(policy);
    button.hide();
}

void Alert::beginSheet(std::unique_ptr<Alert> alert, QWidget& window, Completion completion, Preparation preparation)
{
    Alert* sheet = alert.release(); // the window's from here on
    sheet->setParent(&window, sheet->windowFlags());
    SheetQueue::of(window).begin(
        *sheet,
        [sheet, completion = std::move(completion)](int answer) {
            if (completion) {
                completion(answer);
            }
            sheet->deleteLater();
        },
        std::move(preparation));
}

int Alert::runModal()
{
    return exec();
}

/// The close button of a window manager counts as the Escape key: it needs a second button.
void Alert::reject()
{
    press(1);
}

/// Only now is it known how wide the texts are and in which font they stand.
void Alert::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    layout()->activate();
    m_texts->setMinimumHeight(m_texts->heightForWidth(m_texts->width()));
}

void Alert::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        press(0);
        break;
    case Qt::Key_Escape:
        press(1);
        break;
    case Qt::Key_PageUp:
        m_texts->verticalScrollBar()->triggerAction(QScrollBar::SliderPageStepSub);
        break;
    case Qt::Key_PageDown:
        m_texts->verticalScrollBar()->triggerAction(QScrollBar::SliderPageStepAdd);
        break;
    default:
        QDialog::keyPressEvent(event);
    }
}

/// Clicks the button, if the alert has it. One without any button, which no click can close, is closed unanswered.
void Alert::press(qsizetype button)
{
    if (m_buttons.isEmpty()) {
        done(0);
    } else if (button < m_buttons.size() && !m_buttons.at(button)->isHidden()) {
        m_buttons.at(button)->click();
    }
}
