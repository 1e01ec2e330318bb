// SPDX-License-Identifier: MIT
#include "widgets/EditAbilities.h"

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

/// Of the toolkit's two text controls, which answer alike and share no class that does.
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
