// SPDX-License-Identifier: MIT
#pragma once

#include "plist/Value.h"
#include "store/Record.h"

#include <cstdint>
#include <optional>
#include <vector>

/// A note or an important date that the disk does not have as it is in memory.
struct DraftChange {
    enum class Kind : std::uint8_t { Note, Event };

    Kind kind = Kind::Note;
    std::optional<DatedText> saved;   ///< as the disk has it; nullopt when it has none
    std::optional<DatedText> unsaved; ///< as it is to be; nullopt when it was deleted

    bool operator==(const DraftChange&) const = default;
};

/// All that would be lost if the program were killed now, in the order in which it is taken in again.
using Draft = std::vector<DraftChange>;

namespace Drafts {

/// Of the note or the important date as it is to be, or as it was before it was deleted.
Date dateOf(const DraftChange& change);

/// What `current` has otherwise than `saved`, day by day. Records that are no notes are left out.
Draft changedNotes(const Table& saved, const Table& current);

/// The same of two lists of important dates, whose order does not matter. What was removed is paired with what was
/// added for as long as there is both.
Draft changedEvents(const Table& saved, const Table& current);

/// `draft` as the records of its file.
Table tableFromDraft(const Draft& draft);

/// The draft in the records of a file; nullopt when they are something else, or of a newer version of the program.
std::optional<Draft> draftFromTable(const Table& table);

/// Takes the notes of `draft` into `notes`. A note that is still the saved one is replaced or deleted. Of one that is
/// another by now nothing goes: the text of the draft comes below it, after an empty line, unless one of the two begins
/// with the other, which then says all.
void takeInNotes(const Draft& draft, Table& notes);

/// Takes the important dates of `draft` into `events`: each in the place of the saved one if that is still there, else
/// at the end.
void takeInEvents(const Draft& draft, Table& events);

/// Leaves out of `draft` what would change nothing in these tables: it was saved before the program ended.
void forgetSaved(Draft& draft, Table notes, Table events);

} // namespace Drafts
