// SPDX-License-Identifier: MIT
#pragma once

#include "plist/Value.h"
#include "store/Record.h"

#include <cstdint>
#include <optional>
#include <vector>

/// A change to a note or an important date that has not reached the disk.
struct DraftChange {
    enum class Kind : std::uint8_t { Note, Event };

    Kind kind = Kind::Note;
    std::optional<DatedText> saved;   ///< as it is on the disk; nullopt when it is new
    std::optional<DatedText> unsaved; ///< as it should be; nullopt when it was deleted

    bool operator==(const DraftChange&) const = default;
};

/// Everything that would be lost if the program were killed now, in the order in which it is restored.
using Draft = std::vector<DraftChange>;

namespace Drafts {

/// The date of the note or important date as it should be or, when it was deleted, as it was.
Date dateOf(const DraftChange& change);

/// Whether one of the changes is of that kind.
bool holds(const Draft& draft, DraftChange::Kind kind);

/// The changes from `saved` to `current`, day by day. Records that are not notes are left out.
Draft changedNotes(const Table& saved, const Table& current);

/// The same for two lists of important dates, whose order does not matter. Removed and added ones are paired, as long
/// as there are both.
Draft changedEvents(const Table& saved, const Table& current);

/// The records of a draft's file.
Table tableFromDraft(const Draft& draft);

/// The draft in the records of a file; nullopt when they are not a draft, or one of a newer version of the program.
std::optional<Draft> draftFromTable(const Table& table);

/// Restores the notes of `draft` into `notes`. A note that is still as it was saved is replaced or deleted. One that
/// has changed since loses nothing: the draft's text is added below it, after an empty line, unless one of the two
/// texts begins with the other; then the longer one is kept.
void restoreNotes(const Draft& draft, Table& notes);

/// Restores the important dates of `draft` into `events`, each in the place of the saved one if that is still there,
/// else at the end.
void restoreEvents(const Draft& draft, Table& events);

/// Removes from `draft` what would change nothing in these tables, because it was saved before the program ended.
void forgetSaved(Draft& draft, Table notes, Table events);

} // namespace Drafts
