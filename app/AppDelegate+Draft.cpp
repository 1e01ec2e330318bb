// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"
#include "app/PreferenceKeys.h"
#include "dates/DateUtilities.h"
#include "host/UserDefaults.h"
#include "store/Draft.h"
#include "table/CellEditor.h"
#include "table/TableView.h"
#include "text/Localized.h"
#include "ui_MainWindow.h"

#include <QMainWindow>

#include <algorithm>
#include <iterator>

namespace {

QString shownChange(const DraftChange& change)
{
    const QString day = DateUtilities::mediumStyleFromDate(Drafts::dateOf(change));
    return change.unsaved ? filled(localized("%@: %@"), {day, QString::fromStdString(change.unsaved->text)})
                          : filled(localized("%@: deleted"), {day});
}

QString shownChanges(const Draft& draft)
{
    QStringList changes;
    std::ranges::transform(draft, std::back_inserter(changes), shownChange);
    return changes.join(QStringLiteral("\n\n"));
}

} // namespace

/// The note in whose row something is being typed, with what an input method composes.
std::optional<EditedNote> AppDelegate::editedNote() const
{
    const std::optional<DatedText> note = allNotesTVData ? noteInEditor() : std::nullopt;
    if (!note) {
        return std::nullopt;
    }
    const auto* editor = m_ui.notesTableView->findChild<CellEditor*>();
    const bool isComposing = editor && editor->textAsSeen() != editor->text();
    if (!isComposing && !m_book.isBeingEdited()) {
        return std::nullopt;
    }
    return EditedNote{.row = *note, .text = isComposing ? editor->textAsSeen().toStdString() : note->text};
}

void AppDelegate::offerDraft()
{
    const Draft draft = m_store.leftDraft();
    if (draft.empty()) {
        return;
    }
    auto alert = std::make_unique<Alert>();
    alert->setMessageText(localized("Velumora ended before this was saved"));
    alert->setInformativeText(shownChanges(draft));
    alert->addButton(localized("Keep"));
    alert->addButton(localized("Not Now")); // the Escape key's: only a button that says so discards
    alert->addButton(localized("Discard"));
    Alert::beginSheet(std::move(alert), m_window, [this](int answer) {
        if (answer == Alert::firstButtonReturn) {
            keepDraft();
        } else if (answer == Alert::thirdButtonReturn) {
            m_store.discardLeftDraft();
        }
    });
}

void AppDelegate::keepDraft()
{
    m_ui.notesTableView->endEditing();
    m_ui.importantDatesTableView->endEditing();
    const Draft draft = m_store.takeLeftDraft();
    if (allNotesTVData && Drafts::holds(draft, DraftChange::Kind::Note)) {
        const bool showsAll = m_host.userDefaults.integerForKey(PreferenceKeys::startList) != 0;
        m_book.restoreDraftNotes(draft, showsAll, DateUtilities::today());
        m_ui.filterField->setFoundNothing({});
        showRows();
        showNotesCount(visibleRowsForTV(*m_ui.notesTableView));
        m_store.save(ListKind::Notes);
        redrawMiniCal();
    }
    if (eventsTVData && Drafts::holds(draft, DraftChange::Kind::Event)) {
        m_book.restoreDraftDates(draft);
        m_ui.importantDatesTableView->reloadData();
        m_store.save(ListKind::ImportantDates);
    }
    m_store.writeDraft(); // until the disk has it
}
