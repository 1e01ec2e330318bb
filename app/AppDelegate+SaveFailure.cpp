// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"
#include "dates/DateFormatter.h"
#include "look/SpokenName.h"
#include "store/Record.h"
#include "table/TableView.h"
#include "text/Localized.h"
#include "ui_MainWindow.h"

#include <QCoreApplication>
#include <QPushButton>

#include <cerrno>

namespace {

/// Why the system refused, in plain words.
QString reasonOf(std::error_code error)
{
    switch (error.value()) {
    case ENOSPC:
    case EDQUOT:
        return localized("the disk is full");
    case EFBIG:
        return localized("the file is too large for the disk");
    case EROFS:
        return localized("the disk can only be read");
    case EACCES:
    case EPERM:
        return localized("the folder of the notes may not be written to");
    case ENOENT:
    case ENOTDIR:
        return localized("the folder of the notes is not there");
    default:
        return localized("the disk could not be written to");
    }
}

QString momentText(Date moment)
{
    DateFormatter formatter;
    formatter.setDateStyle(DateFormatter::Style::Medium);
    formatter.setTimeStyle(DateFormatter::Style::Short);
    return formatter.stringFromDate(moment);
}

} // namespace

void AppDelegate::saveNotes()
{
    m_saves.save(allNotesTVData, std::string(NotesFileName));
}

void AppDelegate::saveEvents()
{
    m_saves.save(eventsTVData, std::string(EventsFileName));
}

void AppDelegate::saveEventsUnlessEmpty()
{
    if (!m_book.rows(ListKind::ImportantDates).isEmpty()) {
        saveEvents();
    }
}

void AppDelegate::waitForSaves()
{
    m_saves.waitUntilDone();
    m_draftFile.waitUntilDone();
}

/// Tries once more what failed and leaves a draft of what fails again.
void AppDelegate::waitForReports()
{
    m_saves.retry();
    m_saves.waitUntilDone();
    QCoreApplication::sendPostedEvents(this, QEvent::MetaCall);
    writeDraft();
    m_draftFile.waitUntilDone();
}

void AppDelegate::saveHasEnded(const SaveResult& result)
{
    const ListBinding& list = result.name == m_notesList.fileName ? m_notesList : m_datesList;
    SaveState& state = saveState(list.kind);
    if (result.error) {
        showSaveFailure(list.saveButton, state, result.error);
    } else {
        state.onDisk = result.table.value_or(Table());
        const bool hasChanges = list.kind == ListKind::Notes
                                    ? m_book.hasWaitingLines() || m_ui.notesTableView->editedRow() >= 0
                                    : eventsTVData && *eventsTVData != state.onDisk;
        if (state.failure && !m_saves.unsaved(result.name)) {
            resetSaveFailure(list.saveButton, state, hasChanges);
        }
    }
    writeDraft();
}

/// No message: the button says it to whoever looks, and saves again when pressed.
void AppDelegate::showSaveFailure(QAbstractButton& button, SaveState& state, std::error_code error)
{
    if (!state.failure) {
        state.failure = {DateEnvironment::now(), button.toolTip()};
    }
    const QString text =
        filled(localized("Not saved since %@: %@"), {momentText(state.failure->since), reasonOf(error)});
    button.setToolTip(text);
    setSpokenDescription(button, text);
    buttonEnableDisable(button, true);
}

void AppDelegate::resetSaveFailure(QAbstractButton& button, SaveState& state, bool hasChanges)
{
    button.setToolTip(state.failure->toolTip);
    button.setAccessibleDescription(QString());
    state.failure.reset();
    buttonEnableDisable(button, hasChanges);
}
