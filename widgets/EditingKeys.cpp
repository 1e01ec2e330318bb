// SPDX-License-Identifier: MIT
#include "widgets/EditingKeys.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QWidget>

#include <algorithm>

namespace {

/// A widget that accepts input methods is a text field.
bool isTextField(const QObject& watched)
{
    const auto* widget = qobject_cast<const QWidget*>(&watched);
    return widget && widget->testAttribute(Qt::WA_InputMethodEnabled);
}

bool isEditingKey(const QKeyEvent& event)
{
    if (event.key() == Qt::Key_Backspace || event.key() == Qt::Key_Delete) {
        return true; // with any modifiers: erasing a word must never lead to the question about deleting the note
    }
    const auto matches = [&event](QKeySequence::StandardKey key) { return event.matches(key); };
    constexpr QKeySequence::StandardKey editing[] = {
        QKeySequence::Undo,
        QKeySequence::Redo,
        QKeySequence::Cut,
        QKeySequence::Copy,
        QKeySequence::Paste,
        QKeySequence::SelectAll,
        QKeySequence::DeleteStartOfWord,
        QKeySequence::DeleteEndOfWord,
        QKeySequence::DeleteEndOfLine,
        QKeySequence::DeleteCompleteLine,
        QKeySequence::InsertParagraphSeparator,
        QKeySequence::InsertLineSeparator,
        QKeySequence::MoveToNextChar,
        QKeySequence::MoveToPreviousChar,
        QKeySequence::MoveToNextWord,
        QKeySequence::MoveToPreviousWord,
        QKeySequence::MoveToNextLine,
        QKeySequence::MoveToPreviousLine,
        QKeySequence::MoveToNextPage,
        QKeySequence::MoveToPreviousPage,
        QKeySequence::MoveToStartOfLine,
        QKeySequence::MoveToEndOfLine,
        QKeySequence::MoveToStartOfBlock,
        QKeySequence::MoveToEndOfBlock,
        QKeySequence::MoveToStartOfDocument,
        QKeySequence::MoveToEndOfDocument,
        QKeySequence::SelectNextChar,
        QKeySequence::SelectPreviousChar,
        QKeySequence::SelectNextWord,
        QKeySequence::SelectPreviousWord,
        QKeySequence::SelectNextLine,
        QKeySequence::SelectPreviousLine,
        QKeySequence::SelectNextPage,
        QKeySequence::SelectPreviousPage,
        QKeySequence::SelectStartOfLine,
        QKeySequence::SelectEndOfLine,
        QKeySequence::SelectStartOfBlock,
        QKeySequence::SelectEndOfBlock,
        QKeySequence::SelectStartOfDocument,
        QKeySequence::SelectEndOfDocument,
    };
    return std::ranges::any_of(editing, matches);
}

} // namespace

EditingKeys::EditingKeys(QObject* parent) : QObject(parent)
{
    QCoreApplication::instance()->installEventFilter(this);
}

bool EditingKeys::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride && isTextField(*watched) &&
        isEditingKey(static_cast<const QKeyEvent&>(*event))) {
        event->accept();
        return true;
    }
    return QObject::eventFilter(watched, event);
}
