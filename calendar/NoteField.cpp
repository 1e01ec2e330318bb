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

/// UTF-16 units of a note that a field lays out. Nobody reads more of it in a cell; Return shows all.
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
        focusNextChild(); // there is nothing to read here any more
    }
    setFocusPolicy(note.isEmpty() ? Qt::NoFocus : Qt::StrongFocus);
}

bool NoteField::isCut() const
{
    return verticalScrollBar()->maximum() > 0;
}

int NoteField::lineHeight() const
{
    ensurePolished();                                                   // the style rules give the font
    return static_cast<int>(std::ceil(QFontMetricsF(font()).height())); // as a layout counts it
}

QSize NoteField::minimumSizeHint() const
{
    return least;
}

bool NoteField::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        event->ignore(); // the keys of an editor belong to the menu here
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

/// Leaves free what is too low for a line, so that none shows by half.
void NoteField::resizeEvent(QResizeEvent* event)
{
    constexpr int around = 1; // what a field needs besides its lines to show them all
    const int room = viewport()->height() + viewportMargins().bottom();
    const int spare = std::max(room - around, 0) % lineHeight();
    if (viewportMargins().bottom() != spare) {
        setViewportMargins(0, 0, 0, spare);
    }
    QPlainTextEdit::resizeEvent(event);
}

void NoteField::showWholeNote()
{
    auto* whole = new WholeNote(accessibleName(), m_note, this); // goes when it is closed
    whole->showOver({mapToGlobal(QPoint()), size()});
}
