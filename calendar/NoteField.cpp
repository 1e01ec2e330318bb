// SPDX-License-Identifier: MIT
#include "calendar/NoteField.h"

#include "calendar/WholeNote.h"
#include "look/TableMetrics.h"
#include "text/TextCutting.h"
#include "text/TextLines.h"

#include <QHelpEvent>
#include <QScrollBar>
#include <QToolTip>

#include <algorithm>
#include <cmath>

namespace {

constexpr QSize least(56, 20);

/// UTF-16 units of a note that a field lays out. Nobody reads more in a cell, and Return shows everything.
constexpr qsizetype longestShown = 8'000;

} // namespace

NoteField::NoteField(QWidget* parent) : QPlainTextEdit(parent)
{
    makeReadable(*this);
    setFocusPolicy(Qt::NoFocus);
}

void NoteField::setNote(const QString& note)
{
    if (note != m_note) {
        m_note = note;
        setPlainText(withLineFeeds(shortened(note, longestShown)));
    }
    verticalScrollBar()->setValue(0);
    if (note.isEmpty() && hasFocus()) {
        focusNextChild(); // there is nothing left to read here
    }
    setFocusPolicy(note.isEmpty() ? Qt::NoFocus : Qt::StrongFocus);
}

bool NoteField::isCut() const
{
    return verticalScrollBar()->maximum() > 0;
}

int NoteField::lineHeight() const
{
    ensurePolished();                                                   // the font comes from the style rules
    return static_cast<int>(std::ceil(QFontMetricsF(font()).height())); // rounded as a layout rounds it
}

QSize NoteField::minimumSizeHint() const
{
    return least;
}

bool NoteField::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        event->ignore(); // the field edits nothing, so editing keys go to the menu
        return false;
    }
    return QPlainTextEdit::event(event);
}

bool NoteField::viewportEvent(QEvent* event)
{
    if (event->type() == QEvent::ToolTip) {
        const QPoint place = static_cast<const QHelpEvent*>(event)->globalPos();
        QToolTip::showText(place, isCut() ? plainToolTip(m_note) : QString(), this);
        return true;
    }
    return QPlainTextEdit::viewportEvent(event);
}

void NoteField::keyPressEvent(QKeyEvent* event)
{
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isReturn && !m_note.isEmpty()) {
        showWholeNote();
        return;
    }
    QPlainTextEdit::keyPressEvent(event);
}

/// Leaves out a part too low for a line, so that no line is cut in half.
void NoteField::resizeEvent(QResizeEvent* event)
{
    constexpr int around = 1; // needed in addition to show all lines
    const int room = viewport()->height() + viewportMargins().bottom();
    const int spare = std::max(room - around, 0) % lineHeight();
    if (viewportMargins().bottom() != spare) {
        setViewportMargins(0, 0, 0, spare);
    }
    QPlainTextEdit::resizeEvent(event);
}

void NoteField::showWholeNote()
{
    auto* whole = new WholeNote(accessibleName(), m_note, this); // deletes itself when it is closed
    whole->showOver({mapToGlobal(QPoint()), size()});
}
