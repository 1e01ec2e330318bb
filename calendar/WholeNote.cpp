// SPDX-License-Identifier: MIT
#include "calendar/WholeNote.h"

#include "look/ParagraphLayout.h"
#include "text/TextCutting.h"
#include "text/TextLines.h"

#include <QEvent>
#include <QLabel>
#include <QPlainTextEdit>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr int leastWidth = 400;
constexpr int leastTextHeight = 48;
constexpr int mostTextHeight = 320;
constexpr qsizetype mostMeasured = 4000; ///< UTF-16 units; more fill the frame in any case
constexpr int scrollBarWidth = 12;
constexpr int noteEdge = 16;
constexpr int noteGap = 8;

/// `wanted`, moved so that a length of `size` from there lies within 0 to `room`; 0 when it is too long.
int inside(int wanted, int size, int room)
{
    return std::clamp(wanted, 0, std::max(room - size, 0));
}

} // namespace

void makeReadable(QPlainTextEdit& field)
{
    field.setReadOnly(true);
    field.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    field.setTabChangesFocus(true);
    field.setFrameShape(QFrame::NoFrame);
    field.setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    field.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    field.document()->setDocumentLayout(new ParagraphLayout(*field.document(), field)); // the document owns it
    field.document()->setDocumentMargin(0);
}

WholeNote::WholeNote(const QString& day, const QString& note, QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::FramelessWindowHint), m_text(new QPlainTextEdit(this))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setAccessibleName(day);
    auto* dayLabel = new QLabel(day, this);
    dayLabel->setTextFormat(Qt::PlainText);
    dayLabel->setProperty("secondary", true);
    makeReadable(*m_text);
    m_text->setPlainText(withLineFeeds(note));
    m_text->setAccessibleName(day);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(noteEdge, noteEdge, noteEdge, noteEdge);
    layout->setSpacing(noteGap);
    layout->addWidget(dayLabel);
    layout->addWidget(m_text);
}

void WholeNote::showOver(const QRect& place)
{
    const int textWidth = std::max(leastWidth, place.width()) - 2 * noteEdge;
    const QRect needed = m_text->fontMetrics().boundingRect(
        QRect(0, 0, textWidth - scrollBarWidth, 0), Qt::TextWordWrap | Qt::TextWrapAnywhere,
        beginningOf(m_text->toPlainText(), mostMeasured).toString());
    m_text->setFixedSize(textWidth, std::clamp(needed.height() + noteGap, leastTextHeight, mostTextHeight));
    adjustSize();
    const QWidget& page = *parentWidget()->window();
    const QPoint wanted = page.mapFromGlobal(place.topLeft());
    move(page.mapToGlobal(
        QPoint(inside(wanted.x(), width(), page.width()), inside(wanted.y(), height(), page.height()))));
    show();
    m_text->setFocus(Qt::PopupFocusReason);
}

bool WholeNote::event(QEvent* event)
{
    if (event->type() == QEvent::WindowDeactivate) {
        close();
    }
    return QDialog::event(event);
}
