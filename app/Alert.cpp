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
constexpr int longestBody = 280; ///< a body that is higher than this scrolls
constexpr int messagePixelSize = 14;

/// A text as it is shown: carriage returns begin lines, as line feeds do, and the two together begin one.
QString withLineFeeds(QString text)
{
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    return text.replace(QChar::CarriageReturn, QChar::LineFeed);
}

QLabel* makeText(QWidget* parent)
{
    auto* label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setMinimumWidth(textWidth);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

/// Holds a label at its height, up to the longest body; beyond that it scrolls.
class BodyArea : public QScrollArea {
public:
    explicit BodyArea(QWidget* parent) : QScrollArea(parent)
    {
        setFrameShape(NoFrame);
        setWidgetResizable(true);
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        setFocusPolicy(Qt::NoFocus);
        viewport()->setAutoFillBackground(false);
    }

    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override
    {
        const int height = widget()->heightForWidth(width);
        return std::min(height < 0 ? widget()->sizeHint().height() : height, longestBody);
    }
    QSize sizeHint() const override
    {
        const int width = std::max(widget()->minimumWidth(), textWidth);
        return {width, heightForWidth(width)};
    }
    QSize minimumSizeHint() const override { return sizeHint(); }
};

} // namespace

Alert::Alert(QWidget* parent)
    : QDialog(parent), m_icon(new QLabel(this)), m_message(makeText(this)), m_information(makeText(nullptr)),
      m_body(new BodyArea(this)), m_buttonRow(new QHBoxLayout)
{
    setObjectName(QStringLiteral("alert"));
    QFont bold = m_message->font();
    bold.setBold(true);
    bold.setPixelSize(messagePixelSize);
    m_message->setFont(bold);
    m_information->setAlignment(Qt::AlignTop | Qt::AlignLeading);

    m_body->setWidget(m_information);
    m_information->setAutoFillBackground(false);

    auto* texts = new QVBoxLayout;
    texts->setSpacing(gap);
    texts->addWidget(m_message);
    texts->addWidget(m_body, 1);

    auto* content = new QHBoxLayout;
    content->setSpacing(margin - gap / 2);
    content->addWidget(m_icon, 0, Qt::AlignTop);
    content->addLayout(texts, 1);

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
    m_message->setText(withLineFeeds(headline));
    setWindowTitle(headline.simplified());
    setAccessibleName(headline.simplified());
}

QString Alert::messageText() const
{
    return m_message->text();
}

void Alert::setInformativeText(const QString& body)
{
    m_information->setText(withLineFeeds(body));
    setAccessibleDescription(m_information->text());
}

QString Alert::informativeText() const
{
    return m_information->text();
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

void Alert::beginSheet(std::unique_ptr<Alert> alert, QWidget& window, Completion completion)
{
    Alert* sheet = alert.release(); // the window's from here on
    sheet->setParent(&window, sheet->windowFlags());
    SheetQueue::of(window).begin(*sheet, [sheet, completion = std::move(completion)](int answer) {
        if (completion) {
            completion(answer);
        }
        sheet->deleteLater();
    });
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
        m_body->verticalScrollBar()->triggerAction(QScrollBar::SliderPageStepSub);
        break;
    case Qt::Key_PageDown:
        m_body->verticalScrollBar()->triggerAction(QScrollBar::SliderPageStepAdd);
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
