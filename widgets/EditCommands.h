// SPDX-License-Identifier: MIT
#pragma once

class QWidget;

/// The commands of the edit menu.
enum class EditCommand { Undo, Redo, Cut, Copy, Paste, SelectAll };

/// Which commands of the edit menu apply to a control at this moment.
struct EditAbilities {
    bool undo = false;
    bool redo = false;
    bool cut = false;
    bool copy = false;
    bool paste = false;
    bool selectAll = false;

    bool operator==(const EditAbilities&) const = default;
};

/// All false for null, and for a control that has no text.
EditAbilities editAbilitiesOf(const QWidget* control);

/// Does nothing for null, and for a control that does not support the command.
void carryOut(EditCommand command, QWidget* control);
