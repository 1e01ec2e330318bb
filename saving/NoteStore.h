// SPDX-License-Identifier: MIT
#pragma once

#include "notes/ListRow.h"
#include "store/DataFolder.h"
#include "store/Draft.h"
#include "store/DraftFile.h"
#include "store/Record.h"
#include "store/SaveQueue.h"

#include <QObject>
#include <QTimer>

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <system_error>

class NoteBook;

/// The name of a list's file in the data folder.
std::string fileNameOf(ListKind list);

/// A note whose row is being edited.
struct EditedNote {
    DatedText row;    ///< as the row has it
    std::string text; ///< as it is seen: an input method may have composed more than the row has
};

/// Keeps on the disk what a notebook holds: loads its tables, saves them, and has a draft follow whatever the disk does
/// not have yet, so that a crash takes no more than the last seconds. Saves and drafts are written on threads of their
/// own; everything else belongs to the thread that made the store, whose event loop its reports need.
class NoteStore : public QObject {
    Q_OBJECT

public:
    /// Where the files lie. Without its folder a file is never found and never written.
    struct Folders {
        std::optional<std::filesystem::path> applicationSupport; ///< the data folder is in it
        std::optional<std::filesystem::path> state;              ///< the draft is in it
        std::optional<std::filesystem::path> temporary;          ///< takes the draft while the other cannot
    };

    /// Tells which note is being typed in, nullopt when none is or nothing was typed yet.
    using EditedNoteSource = std::function<std::optional<EditedNote>()>;

    /// `book` outlives the store, and so does whatever `editedNote` uses.
    NoteStore(NoteBook& book, const Folders& folders, EditedNoteSource editedNote);

    /// The data folder, made if it can be.
    std::optional<std::filesystem::path> folder() const { return m_folder.ensure(); }

    // --- Loading -----------------------------------------------------------------------------------------------------

    /// Loads a table into the book: nullopt when its file cannot be read.
    void load(ListKind list);

    /// Strips the notes of what an older product left in them and saves them; what that leaves out is kept aside. False
    /// when there are no notes to clean.
    bool cleanNotes();

    // --- Saving ------------------------------------------------------------------------------------------------------

    /// Saves a table of the book as it is now, and returns at once.
    void save(ListKind list);

    /// The same, but leaves the file of a table that is empty alone, which an empty save would remove.
    void saveUnlessEmpty(ListKind list);

    /// Saves the notes of which one that said `replaced` is changed or gone. A row can show another text than the saved
    /// one, after an import for example: a text that was not `seen` is kept aside.
    void saveNotesInsteadOf(const std::string& replaced, const std::string& seen);

    /// Has an imported table take the place of the file called `fileName`, which is kept aside.
    void replace(std::optional<Table> imported, const std::string& fileName);

    /// Tries again what failed, and returns at once.
    void retry() { m_saves.retry(); }

    /// Tries again what failed, and returns once everything was tried.
    void retryAndWait();

    /// Whether the disk has everything that was saved of a list.
    bool isSaved(ListKind list) const { return !m_saves.unsaved(fileNameOf(list)); }

    /// Whether the book's table is another than the one on the disk.
    bool hasChanges(ListKind list) const;

    /// Returns once all that was saved, and the draft, was written or tried.
    void waitUntilDone();

    /// For the end of the program: tries once more what failed, and leaves a draft of what fails again.
    void finish();

    // --- The draft ---------------------------------------------------------------------------------------------------

    /// Something that is not saved has changed: the draft follows shortly.
    void draftHasChanged();

    /// Has the draft follow now.
    void writeDraft();

    /// What an earlier run left unsaved and no save has held since, until it is taken or discarded. Empty, too, while
    /// the table that it belongs to cannot be read: it waits for a start that can.
    Draft leftDraft();

    /// The same, to be taken into the book; the draft no longer holds it once it is next written.
    Draft takeLeftDraft();

    void discardLeftDraft();

Q_SIGNALS:
    /// After every attempt to save a list; no `error` when the disk has it.
    void saveEnded(ListKind list, std::error_code error);

private:
    void readDraft();
    void noteResult(const SaveResult& result);
    const std::optional<Table>& tableOf(ListKind list) const;
    Table& onDisk(ListKind list) { return list == ListKind::Notes ? m_notesOnDisk : m_datesOnDisk; }
    const Table& onDisk(ListKind list) const { return list == ListKind::Notes ? m_notesOnDisk : m_datesOnDisk; }

    NoteBook& m_book;
    EditedNoteSource m_editedNote;
    Table m_notesOnDisk;
    Table m_datesOnDisk;
    Draft m_leftDraft;
    bool m_draftWasRead = false;
    QTimer m_draftTimer{this}; ///< runs while the draft is older than what it keeps
    DataFolder m_folder;
    DraftFile m_draftFile;
    SaveQueue m_saves; ///< last: its reports use the others
};
