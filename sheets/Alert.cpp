// SPDX-License-Identifier: MIT
#include "sheets/Alert.h"

#include "look/ReadingText.h"
#include "look/WrappingButton.h"
#include "sheets/SheetQueue.h"
#include "text/TextCutting.h"
#include "text/TextLines.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QScrollBar>
#include <QStyle>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr int margin = 24;
constexpr int gap = 12;
constexpr int iconSize = 48;
constexpr int mostHeadline = 120; ///< points; a higher headline scrolls
constexpr int mostBody = 260;
constexpr qsizetype longestHeadline = 400; ///< UTF-16 units; a longer one is shown without its middle

} // namespace

Alert::Alert(QWidget* parent)
    : QDialog(parent), m_icon(new QLabel(this)), m_message(new ReadingText(mostHeadline, this)),
      m_information(new ReadingText(mostBody, this)), m_buttonRow(new QHBoxLayout)
{
    setObjectName(QStringLiteral("alert"));
    QFont bold = m_message->font();
    bold.setBold(true);
    m_message->setFont(bold);
    m_message->setProperty("headline", true);

    auto* texts = new QVBoxLayout;
    texts->setSpacing(gap);
    texts->addWidget(m_message);
    texts->addWidget(m_information);
    texts->addStretch(1);

    auto* content = new QHBoxLayout;
    content->setSpacing(margin - gap / 2);
    content->addWidget(m_icon, 0, Qt::AlignTop);
    content->addLayout(texts, 1);

    m_buttonRow->setDirection(QBoxLayout::RightToLeft); // the first button is outermost
    m_buttonRow->setSpacing(gap);
    m_buttonRow->addStretch(1);

    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(margin, margin, margin, margin);
    all->setSpacing(margin);
    all->addLayout(content, 1);
    all->addLayout(m_buttonRow);
    setAlertStyle(Style::Warning);
}

void Alert::setMessageText(const QString& headline)
{
    m_headline = headline;
    const QString shown = withoutMiddle(withLineFeeds(headline), longestHeadline);
    m_message->setText(shown);
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
    m_information->setText(withLineFeeds(body));
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
    auto* button = new WrappingButton(title, this);
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
    button.hide();
}

void Alert::beginSheet(std::unique_ptr<Alert> alert, QWidget& window, Completion completion, Preparation preparation)
{
    Alert* sheet = alert.release(); // owned by the window from here on
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

/// A window manager's close button acts like the Escape key, and so needs a second button.
void Alert::reject()
{
    press(1);
}

/// Wide enough for all buttons in one row, including hidden ones, within the maximum.
QSize Alert::sizeHint() const
{
    int row = m_buttonRow->sizeHint().width();
    for (const QPushButton* button : m_buttons) {
        row += button->isHidden() ? button->sizeHint().width() + gap : 0;
    }
    const int width = std::min(std::max(row + 2 * margin, QDialog::sizeHint().width()), maximumWidth());
    return {width, layout()->totalHeightForWidth(width)};
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
        scroll(QScrollBar::SliderPageStepSub);
        break;
    case Qt::Key_PageDown:
        scroll(QScrollBar::SliderPageStepAdd);
        break;
    default:
        QDialog::keyPressEvent(event);
    }
}

/// Scrolls by a page the body or, if that is shown completely, the headline.
void Alert::scroll(int action)
{
    const ReadingText& text = m_information->isCut() ? *m_information : *m_message;
    text.verticalScrollBar()->triggerAction(static_cast<QScrollBar::SliderAction>(action));
}

/// Clicks the button, if it is there. An alert without buttons, which no click can close, is closed with the answer 0.
void Alert::press(qsizetype button)
{
    if (m_buttons.isEmpty()) {
        done(0);
    } else if (button < m_buttons.size() && !m_buttons.at(button)->isHidden()) {
        m_buttons.at(button)->click();
    }
}
