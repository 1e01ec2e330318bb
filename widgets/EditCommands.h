// SPDX-License-Identifier: MIT
#pragma once

class QWidget;

/// The commands of the edit menu.
enum class EditCommand { Undo, Redo, Cut, Copy, Paste, SelectAll };

/// What the commands of the edit menu can do with a control at this moment.
struct EditAbilities {
    bool undo = false;
    bool redo = false;
    bool cut = false;
    bool copy = false;
    bool paste = false;
    bool selectAll = false;

    bool operator==(const EditAbilities&) const = default;
};

/// All false for a control that holds no text, and for none.
EditAbilities editAbilitiesOf(const QWidget* control);

/// Nothing happens to a control that does not know the command, or to none.
void carryOut(EditCommand command, QWidget* control);
