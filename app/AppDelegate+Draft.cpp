// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"
#include "app/PreferenceKeys.h"
#include "dates/DateUtilities.h"
#include "host/UserDefaults.h"
#include "notes/NoteQueries.h"
#include "store/Draft.h"
#include "store/Record.h"
#include "table/CellEditor.h"
#include "table/TableView.h"
#include "text/Localized.h"
#include "ui_MainWindow.h"

#include <QMainWindow>
#include <QPushButton>

#include <algorithm>
#include <chrono>
#include <utility>

namespace {

/// How much typing a crash may take, less what the writing takes. The timer is not started anew by a further change, so
/// it runs out during continuous typing too.
constexpr std::chrono::milliseconds draftDelay(1500);

/// Everything that the draft of a moment is made of; the tables share their elements with the live ones.
struct DraftSource {
    Draft found;
    Table notesOnDisk;
    Table notes;
    Table addedLines;
    std::optional<DatedText> editedNote;
    Table eventsOnDisk;
    Table events;
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
        NoteQueries::addLineToNote(notes, *dateOf(line, NoteDateKey), *textOf(line, NoteDataKey));
    }
    Draft draft = source.found;
    std::ranges::move(Drafts::changedNotes(source.notesOnDisk, notes), std::back_inserter(draft));
    std::ranges::move(Drafts::changedEvents(source.eventsOnDisk, source.events), std::back_inserter(draft));
    return draft;
}

bool holds(const Draft& draft, DraftChange::Kind kind)
{
    return std::ranges::find(draft, kind, &DraftChange::kind) != draft.end();
}

QString shownChange(const DraftChange& change)
{
    const QString day = DateUtilities::mediumStyleFromDate(Drafts::dateOf(change));
    return change.unsaved ? filled(localized("%@: %@"), {day, QString::fromStdString(change.unsaved->text)})
                          : filled(localized("%@: deleted"), {day});
}

} // namespace

void AppDelegate::draftHasChanged()
{
    if (!m_draftTimer.isActive()) {
        m_draftTimer.start(draftDelay);
    }
}

/// The note in whose row something is being typed, with what an input method composes.
std::optional<DatedText> AppDelegate::editedNote() const
{
    std::optional<DatedText> note = allNotesTVData ? noteInEditor() : std::nullopt;
    if (!note) {
        return std::nullopt;
    }
    const auto* editor = m_ui.notesTableView->findChild<CellEditor*>();
    const bool isComposing = editor && editor->textAsSeen() != editor->text();
    if (isComposing) {
        note->text = editor->textAsSeen().toStdString();
    }
    return isComposing || m_book.isBeingEdited() ? note : std::nullopt;
}

void AppDelegate::writeDraft()
{
    m_draftTimer.stop();
    readDraft(); // lest it is written over
    const std::optional<DatedText> edited = editedNote();
    const Table& notesOnDisk = saveState(ListKind::Notes).onDisk;
    const Table& eventsOnDisk = saveState(ListKind::ImportantDates).onDisk;
    DraftSource source{.found = m_foundDraft,
                       .notesOnDisk = notesOnDisk,
                       .notes = m_saves.unsaved(std::string(NotesFileName)).value_or(notesOnDisk),
                       .addedLines = m_book.linesBeside(edited ? noteInEditor() : std::nullopt),
                       .editedNote = edited,
                       .eventsOnDisk = eventsOnDisk,
                       .events = eventsTVData.value_or(eventsOnDisk)};
    m_draftFile.write([source = std::move(source)] { return draftFrom(source); });
}

void AppDelegate::readDraft()
{
    if (!std::exchange(m_draftWasRead, true)) {
        m_foundDraft = m_draftFile.read();
    }
}

void AppDelegate::offerDraft()
{
    readDraft();
    const bool hasPlace = (allNotesTVData || !holds(m_foundDraft, DraftChange::Kind::Note)) &&
                          (eventsTVData || !holds(m_foundDraft, DraftChange::Kind::Event));
    if (m_foundDraft.empty() || !hasPlace) {
        return; // without its table a draft waits for a start that has it
    }
    Drafts::forgetSaved(m_foundDraft, m_book.notes(), m_book.rows(ListKind::ImportantDates));
    if (m_foundDraft.empty()) {
        writeDraft();
        return;
    }
    auto alert = std::make_unique<Alert>();
    alert->setMessageText(localized("Velumora ended before this was saved"));
    alert->setInformativeText(draftText());
    alert->addButton(localized("Keep"));
    alert->addButton(localized("Not Now")); // the Escape key's: only a button that says so discards
    alert->addButton(localized("Discard"));
    Alert::beginSheet(std::move(alert), m_window, [this](int answer) {
        if (answer == Alert::firstButtonReturn) {
            keepDraft();
        } else if (answer == Alert::thirdButtonReturn) {
            m_foundDraft.clear();
            writeDraft();
        }
    });
}

QString AppDelegate::draftText() const
{
    QStringList changes;
    std::ranges::transform(m_foundDraft, std::back_inserter(changes), shownChange);
    return changes.join(QStringLiteral("\n\n"));
}

void AppDelegate::keepDraft()
{
    m_ui.notesTableView->endEditing();
    m_ui.importantDatesTableView->endEditing();
    const Draft draft = std::exchange(m_foundDraft, {});
    if (allNotesTVData && holds(draft, DraftChange::Kind::Note)) {
        const bool showsAll = m_host.userDefaults.integerForKey(PreferenceKeys::startList) != 0;
        m_book.takeInDraftNotes(draft, showsAll, DateUtilities::today());
        m_ui.filterField->setFoundNothing({});
        showRows();
        showNotesCount(visibleRowsForTV(*m_ui.notesTableView));
        m_saves.save(allNotesTVData, std::string(NotesFileName));
        redrawMiniCal();
    }
    if (eventsTVData && holds(draft, DraftChange::Kind::Event)) {
        m_book.takeInDraftDates(draft);
        m_ui.importantDatesTableView->reloadData();
        m_saves.save(eventsTVData, std::string(EventsFileName));
    }
    writeDraft(); // until the disk has it
}
