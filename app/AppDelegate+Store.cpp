// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"
#include "app/PreferenceKeys.h"
#include "host/UserDefaults.h"
#include "ui_MainWindow.h"
#include "widgets/SaveButton.h"

#include <QMainWindow>

void AppDelegate::loadTables()
{
    m_store.load(ListKind::Notes);
    if (!m_host.userDefaults.boolForKey(PreferenceKeys::notesCleaned) && m_store.cleanNotes()) {
        m_host.userDefaults.setInteger(1, PreferenceKeys::notesCleaned);
    }
    notesTVData = m_book.notes(); // the list of a file that could not be read is an empty one
    m_ui.notesTableView->reloadData();

    m_store.load(ListKind::ImportantDates);
    m_ui.addImportantDateBtn->setEnabled(eventsTVData.has_value()); // a list that could not be read takes none
    m_ui.importantDatesTableView->reloadData();
}

void AppDelegate::saveTVDataToFile(QAbstractButton& sender)
{
    if (&sender == m_ui.importantDateSaveBtn) {
        m_ui.importantDatesTableView->reloadData();
    }
    if (QWidget* firstResponder = m_window.focusWidget()) {
        firstResponder->clearFocus();
    }
    m_ui.notesTableView->endEditing();
    m_ui.importantDatesTableView->endEditing();
    saveTableOf(sender);
}

void AppDelegate::saveTableOf(QAbstractButton& button)
{
    if (&button == m_ui.noteEntryListSaveBtn) {
        takeInDateNotes();
    }
    buttonEnableDisable(button, false);
    if (&button == m_ui.importantDateSaveBtn) {
        m_store.save(ListKind::ImportantDates);
    } else if (&button == m_ui.noteEntryListSaveBtn) {
        m_store.save(ListKind::Notes);
    }
}

void AppDelegate::saveAll()
{
    m_ui.notesTableView->commitEditing();
    m_ui.importantDatesTableView->commitEditing();
    for (SaveButton* button : {m_ui.noteEntryListSaveBtn, m_ui.importantDateSaveBtn}) {
        if (button->isEnabled()) {
            saveTableOf(*button);
        }
    }
}

void AppDelegate::saveHasEnded(ListKind kind, std::error_code error)
{
    SaveButton& button = kind == ListKind::Notes ? m_notesList.saveButton : m_datesList.saveButton;
    if (error) {
        button.showFailure(error, DateEnvironment::now());
    } else if (button.showsFailure() && m_store.isSaved(kind)) {
        button.endFailure();
        buttonEnableDisable(button, kind == ListKind::Notes
                                        ? m_book.hasWaitingLines() || m_ui.notesTableView->editedRow() >= 0
                                        : m_store.hasChanges(kind));
    }
}
