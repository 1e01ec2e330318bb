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

/// Keeps a notebook on the disk: loads its tables, saves them, and keeps a draft of everything that the disk does not
/// have yet, so that a crash loses no more than the last two seconds. Saves and drafts are written on threads of their
/// own; everything else belongs to the thread that created the store, whose event loop delivers the reports.
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

    /// Strips the notes of what an older product left in them and saves them, keeping a copy of the former file. False
    /// when there are no notes to clean.
    bool cleanNotes();

    // --- Saving ------------------------------------------------------------------------------------------------------

    /// Saves a table of the book as it is now, and returns at once.
    void save(ListKind list);

    /// The same, except that nothing happens for an empty table, whose saving would remove the file.
    void saveUnlessEmpty(ListKind list);

    /// Saves the notes after one whose saved text was `replaced` was changed or removed. Its row may have shown another
    /// text, after an import for example: what the user has not `seen` is kept in the folder of recovered files.
    void saveNotesInsteadOf(const std::string& replaced, const std::string& seen);

    /// Replaces the file called `fileName` by an imported table and keeps a copy of the file.
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

    /// To be called when the program ends: tries again what failed, and leaves a draft of what fails once more.
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
    void takeResult(const SaveResult& result);
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
