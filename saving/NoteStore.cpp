// SPDX-License-Identifier: MIT
#include "saving/NoteStore.h"

#include "dates/DateUtilities.h"
#include "notes/NoteBook.h"
#include "notes/NoteQueries.h"

#include <QCoreApplication>
#include <QEvent>

#include <algorithm>
#include <chrono>
#include <iterator>
#include <utility>

namespace {

/// How much typing a crash may take, less what the writing takes. The timer is not started anew by a further change, so
/// it runs out during continuous typing too.
constexpr std::chrono::milliseconds draftDelay(1500);

/// Everything that the draft of a moment is made of; the tables share their elements with the live ones.
struct DraftSource {
    Draft left;
    Table notesOnDisk;
    Table notes;
    Table addedLines;
    std::optional<DatedText> editedNote;
    Table datesOnDisk;
    Table dates;
};

/// Puts the note as it is being typed into `notes`. A day that was only looked at leaves none.
void putEditedNote(Table& notes, const DatedText& edited)
{
    const std::int64_t index = NoteQueries::doesTVDataHaveDate(notes, edited.date);
    if (index != DateUtilities::NotFound) {
        notes[index] = withText(notes.at(index), NoteDataKey, edited.text);
    } else if (!edited.text.empty()) {
        notes.append(makeNoteRecord(edited.date, edited.text));
    }
}

Draft draftFrom(const DraftSource& source)
{
    Table notes = source.notes;
    if (source.editedNote) {
        putEditedNote(notes, *source.editedNote);
    }
    for (const Value& line : source.addedLines) { // after it: an edit need not have seen a line that waits
        NoteQueries::addLineToNote(notes, *dateOf(line, NoteDateKey), std::string(*textOf(line, NoteDataKey)));
    }
    Draft draft = source.left;
    std::ranges::move(Drafts::changedNotes(source.notesOnDisk, notes), std::back_inserter(draft));
    std::ranges::move(Drafts::changedEvents(source.datesOnDisk, source.dates), std::back_inserter(draft));
    return draft;
}

} // namespace

std::string fileNameOf(ListKind list)
{
    return std::string(list == ListKind::Notes ? NotesFileName : EventsFileName);
}

NoteStore::NoteStore(NoteBook& book, const Folders& folders, EditedNoteSource editedNote)
    : m_book(book), m_editedNote(std::move(editedNote)), m_folder(folders.applicationSupport, DateEnvironment::clock()),
      m_draftFile(folders.state, folders.temporary), m_saves(m_folder, [this](const SaveResult& result) {
          QMetaObject::invokeMethod(
              this, [this, result] { takeResult(result); }, Qt::QueuedConnection);
      })
{
    m_draftTimer.setSingleShot(true);
    m_draftTimer.setTimerType(Qt::PreciseTimer);
    connect(&m_draftTimer, &QTimer::timeout, this, &NoteStore::writeDraft);
}

void NoteStore::load(ListKind list)
{
    (list == ListKind::Notes ? m_book.allNotes : m_book.importantDates) = m_folder.loadTable(fileNameOf(list));
    onDisk(list) = elementsOf(m_book.saved(list));
}

bool NoteStore::cleanNotes()
{
    if (m_book.notes().isEmpty()) {
        return false;
    }
    m_book.allNotes = cleanedNotes(m_book.notes());
    m_saves.save(m_book.allNotes, fileNameOf(ListKind::Notes), Replacing::Nothing);
    return true;
}

void NoteStore::save(ListKind list)
{
    m_saves.save(m_book.saved(list), fileNameOf(list));
}

void NoteStore::saveUnlessEmpty(ListKind list)
{
    if (!elementsOf(m_book.saved(list)).isEmpty()) {
        save(list);
    }
}

void NoteStore::saveNotesInsteadOf(const std::string& replaced, const std::string& seen)
{
    if (seen.find(replaced) != std::string::npos) {
        save(ListKind::Notes);
        return;
    }
    retryAndWait(); // the copy is made of what is on the disk
    m_saves.save(m_book.allNotes, fileNameOf(ListKind::Notes), Replacing::Nothing);
}

void NoteStore::replace(std::optional<Table> imported, const std::string& fileName)
{
    m_saves.save(std::move(imported), fileName, Replacing::Nothing);
}

void NoteStore::retryAndWait()
{
    m_saves.retry();
    m_saves.waitUntilDone();
}

bool NoteStore::hasChanges(ListKind list) const
{
    return m_book.saved(list) && *m_book.saved(list) != onDisk(list);
}

void NoteStore::waitUntilDone()
{
    m_saves.waitUntilDone();
    m_draftFile.waitUntilDone();
}

void NoteStore::finish()
{
    retryAndWait();
    QCoreApplication::sendPostedEvents(this, QEvent::MetaCall); // the reports
    writeDraft();
    m_draftFile.waitUntilDone();
}

void NoteStore::takeResult(const SaveResult& result)
{
    const ListKind list = result.name == fileNameOf(ListKind::Notes) ? ListKind::Notes : ListKind::ImportantDates;
    if (!result.error) {
        onDisk(list) = elementsOf(result.table);
    }
    Q_EMIT saveEnded(list, result.error);
    writeDraft();
}

void NoteStore::draftHasChanged()
{
    if (!m_draftTimer.isActive()) {
        m_draftTimer.start(draftDelay);
    }
}

void NoteStore::writeDraft()
{
    m_draftTimer.stop();
    readDraft(); // lest it is written over
    const std::optional<EditedNote> edited = m_editedNote();
    const auto row = edited ? std::optional(edited->row) : std::nullopt;
    const auto note = edited ? std::optional(DatedText{edited->row.date, edited->text}) : std::nullopt;
    DraftSource source{.left = m_leftDraft,
                       .notesOnDisk = m_notesOnDisk,
                       .notes = m_saves.unsaved(fileNameOf(ListKind::Notes)).value_or(m_notesOnDisk),
                       .addedLines = m_book.linesBeside(row),
                       .editedNote = note,
                       .datesOnDisk = m_datesOnDisk,
                       .dates = m_book.importantDates.value_or(m_datesOnDisk)};
    m_draftFile.write([source = std::move(source)] { return draftFrom(source); });
}

void NoteStore::readDraft()
{
    if (!std::exchange(m_draftWasRead, true)) {
        m_leftDraft = m_draftFile.read();
    }
}

Draft NoteStore::leftDraft()
{
    readDraft();
    const bool hasPlace = (m_book.allNotes || !Drafts::holds(m_leftDraft, DraftChange::Kind::Note)) &&
                          (m_book.importantDates || !Drafts::holds(m_leftDraft, DraftChange::Kind::Event));
    if (m_leftDraft.empty() || !hasPlace) {
        return {};
    }
    Drafts::forgetSaved(m_leftDraft, m_book.notes(), m_book.rows(ListKind::ImportantDates));
    if (m_leftDraft.empty()) {
        writeDraft();
    }
    return m_leftDraft;
}

Draft NoteStore::takeLeftDraft()
{
    return std::exchange(m_leftDraft, {});
}

void NoteStore::discardLeftDraft()
{
    m_leftDraft.clear();
    writeDraft();
}
