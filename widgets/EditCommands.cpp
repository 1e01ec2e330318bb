// SPDX-License-Identifier: MIT
#include "widgets/EditCommands.h"

#include "table/TableView.h"

#include <QAbstractSpinBox>
#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextEdit>

namespace {

EditAbilities abilitiesOf(const QLineEdit& field)
{
    const bool writable = !field.isReadOnly();
    const bool shown = field.echoMode() == QLineEdit::Normal;
    return {.undo = writable && field.isUndoAvailable(),
            .redo = writable && field.isRedoAvailable(),
            .cut = writable && shown && field.hasSelectedText(),
            .copy = shown && field.hasSelectedText(),
            .paste = writable && !QGuiApplication::clipboard()->text().isEmpty(),
            .selectAll = !field.text().isEmpty()};
}

/// For Qt's two text controls, which have these functions but no common class with them.
template <typename TextEdit> EditAbilities abilitiesOfText(const TextEdit& field)
{
    const bool writable = !field.isReadOnly();
    const bool selected = field.textCursor().hasSelection();
    return {.undo = writable && field.document()->isUndoAvailable(),
            .redo = writable && field.document()->isRedoAvailable(),
            .cut = writable && selected,
            .copy = selected,
            .paste = field.canPaste(),
            .selectAll = !field.document()->isEmpty()};
}

/// Qt's text controls have these commands under the same names.
template <typename TextControl> void carryOutOn(EditCommand command, TextControl& field)
{
    switch (command) {
    case EditCommand::Undo:
        return field.undo();
    case EditCommand::Redo:
        return field.redo();
    case EditCommand::Cut:
        return field.cut();
    case EditCommand::Copy:
        return field.copy();
    case EditCommand::Paste:
        return field.paste();
    case EditCommand::SelectAll:
        return field.selectAll();
    }
}

} // namespace

EditAbilities editAbilitiesOf(const QWidget* control)
{
    if (const auto* line = qobject_cast<const QLineEdit*>(control)) {
        return abilitiesOf(*line);
    }
    if (const auto* text = qobject_cast<const QPlainTextEdit*>(control)) {
        return abilitiesOfText(*text);
    }
    if (const auto* text = qobject_cast<const QTextEdit*>(control)) {
        return abilitiesOfText(*text);
    }
    if (const auto* table = qobject_cast<const TableView*>(control)) {
        return {.copy = table->selectedRow() >= 0};
    }
    return {.selectAll = qobject_cast<const QAbstractSpinBox*>(control) != nullptr};
}

void carryOut(EditCommand command, QWidget* control)
{
    if (auto* line = qobject_cast<QLineEdit*>(control)) {
        carryOutOn(command, *line);
    } else if (auto* plainText = qobject_cast<QPlainTextEdit*>(control)) {
        carryOutOn(command, *plainText);
    } else if (auto* richText = qobject_cast<QTextEdit*>(control)) {
        carryOutOn(command, *richText);
    } else if (const auto* table = qobject_cast<const TableView*>(control); table && command == EditCommand::Copy) {
        table->copy();
    } else if (auto* spinBox = qobject_cast<QAbstractSpinBox*>(control); spinBox && command == EditCommand::SelectAll) {
        spinBox->selectAll();
    }
}
